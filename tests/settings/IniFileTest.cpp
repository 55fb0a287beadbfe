// twk.ini read as plain lines.

#include "core/settings/IniFile.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

TEST(SettingsIniFile, ValueIsTheTextBehindTheFirstEqualsSignOfTheSectionOrLater) {
    test::TempTree tree;
    const IniFile ini = IniFile::twkIni(tree.paths());
    EXPECT_EQ(ini.IniValue("TreeContext", "TreeContext"), "") << "no file";
    EXPECT_FALSE(ini.readLines().has_value());
    const struct {
        const char* content;
        const char* value;
    } cases[] = {
        {"TreeContext=NDS:\\\\T\\O\n[Other]\n", ""},
        {"free text [TreeContext] explained\r\nTreeContextX=no\r\n TreeContext=indented\r\n"
         "TreeContext=NDS:\\\\T\\O=x,NDS:\\\\T\\P \r\nTreeContext=second\r\n",
         "NDS:\\\\T\\O=x,NDS:\\\\T\\P "},
        {"[TreeContext]\n[RealtimeMonitor]\nTreeContext=late", "late"}};
    for (const auto& c : cases) {
        tree.write("app/twk.ini", c.content);
        EXPECT_EQ(ini.IniValue("TreeContext", "TreeContext"), c.value) << c.content;
    }
}

TEST(SettingsIniFile, LinesEndAtLfOrCrLf) {
    EXPECT_EQ(iniFileLines("a\r\nb\n\nc"), (QStringList{"a", "b", "", "c"}));
    EXPECT_EQ(iniFileLines("a\n"), QStringList{"a"});
    EXPECT_EQ(iniFileLines("Gr\xFC\xDF"
                           "e\n"),
              QStringList{"Grüße"}); // Latin-1 of old files
    EXPECT_EQ(iniFileBytes({"a", "", "ü"}), QByteArray("a\n\n\xC3\xBC\n"));
}

} // namespace
} // namespace twk
