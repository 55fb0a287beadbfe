// twk.ini read as plain lines.

#include "core/settings/IniFile.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

TEST(SettingsIniFile, MissingFileOrSectionGivesNothing) {
    test::TempTree tree;
    const IniFile ini = IniFile::twkIni(tree.paths());
    EXPECT_EQ(ini.IniValue("TreeContext", "TreeContext"), "");
    EXPECT_FALSE(ini.readLines().has_value());
    tree.write("app/twk.ini", "TreeContext=NDS:\\\\T\\O\n[Other]\n");
    EXPECT_EQ(ini.IniValue("TreeContext", "TreeContext"), "");
}

TEST(SettingsIniFile, ValueIsTheTextBehindTheFirstEqualsSign) {
    test::TempTree tree;
    tree.write("app/twk.ini", "free text [TreeContext] explained\r\n"
                              "TreeContextX=no\r\n"
                              " TreeContext=indented\r\n"
                              "TreeContext=NDS:\\\\T\\O=x,NDS:\\\\T\\P \r\n"
                              "TreeContext=second\r\n");
    EXPECT_EQ(IniFile::twkIni(tree.paths()).IniValue("TreeContext", "TreeContext"),
              "NDS:\\\\T\\O=x,NDS:\\\\T\\P ");
}

TEST(SettingsIniFile, KeyIsFoundInALaterSection) {
    test::TempTree tree;
    tree.write("app/twk.ini", "[TreeContext]\n[RealtimeMonitor]\nTreeContext=late");
    EXPECT_EQ(IniFile::twkIni(tree.paths()).IniValue("TreeContext", "TreeContext"), "late");
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
