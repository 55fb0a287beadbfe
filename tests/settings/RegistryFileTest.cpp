// The registry store on disk: export format, foreign and damaged files, writing.

#include "TestSupport.h"
#include "core/settings/Registry.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include <sys/stat.h>

namespace twk {
namespace {

const QString kTwkKey = "Software\\Brindlex\\TWK";

QByteArray utf16WithBom(const QString& text) {
    return QByteArray("\xFF\xFE", 2) + utf16Bytes(text);
}

TEST(SettingsRegistryFile, ReadsAUtf16ExportWithWrappedHex) {
    test::TempTree tree;
    // "a", "b" as hex(7) with double terminator, wrapped like an export.
    const QString exported = "Windows Registry Editor Version 5.00\r\n\r\n"
                             "[HKEY_CURRENT_USER\\Software\\Brindlex\\TWK\\Realtime Monitor]\r\n"
                             "@=\"d\\\\e\\\"f\"\r\n"
                             "\"FS1\"=\"10.1.1.1\"\r\n"
                             "\"Port\"=dword:0000003c\r\n"
                             "\"Lines\"=hex(7):61,00,00,00,\\\r\n"
                             "  62,00,00,00,00,00\r\n"
                             "\"Path\"=hex(2):25,00,41,00,25,00,00,00\r\n"
                             "\"Raw\"=hex:41,42\r\n"
                             "\r\n"
                             "[HKEY_CLASSES_ROOT\\.twk]\r\n"
                             "@=\"twkfile\"\r\n";
    const Registry reg(tree.write("config/registry.reg", utf16WithBom(exported)));
    const QString key = kTwkKey + "\\Realtime Monitor";
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, QString()), "d\\e\"f");
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, "FS1"), "10.1.1.1");
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, "Port"), "60");
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, "Lines"), "a#b");
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, "Path"), "%A%");
    EXPECT_EQ(reg.Reg_GetValue(kUser, key, "Raw"), "AB");
    EXPECT_EQ(reg.Reg_GetValue(Hive::ClassesRoot, ".TWK", QString()), "twkfile");
}

TEST(SettingsRegistryFile, SkipsWhatItCannotReadAndKeepsTheRest) {
    test::TempTree tree;
    const QByteArray damaged = "Windows Registry Editor Version 5.00\n\n"
                               "[HKEY_CURRENT_USER\\Software\\Brindlex\\TWK]\n"
                               "\"Good\"=\"1\"\n"
                               "\"Unclosed=\"2\"\n"
                               "\"BadDword\"=dword:xyz\n"
                               "\"BadHex\"=hex:4g,00\n"
                               "\"Odd\"=hex(1):41\n"
                               "garbage line \x01\x02\xff\n"
                               "[HKEY_NOWHERE\\Foo]\n"
                               "\"Lost\"=\"x\"\n"
                               "[HKEY_CURRENT_USER\\Software\\Brindlex\\TWK]\n"
                               "\"Cut\"=hex(2):41,00,\\\n";
    const Registry reg(tree.write("config/registry.reg", damaged));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kTwkKey, "Good"), "1");
    const auto values = reg.Reg_GetAllKeys(kUser, kTwkKey);
    ASSERT_EQ(values.size(), 2); // "Good" and the odd-length text
    EXPECT_EQ(values[1].name, "Odd");
    EXPECT_FALSE(reg.RegSZExist(kUser, kTwkKey, "Cut"));
    EXPECT_FALSE(reg.RegKeyExist(kUser, "Foo"));
}

TEST(SettingsRegistryFile, RandomBytesNeverCrashTheReader) {
    test::TempTree tree;
    QRandomGenerator random(4711);
    const QByteArray lines[] = {"[HKEY_CURRENT_USER\\A]\n",
                                "\"n\"=hex(7):00,\\\n",
                                "@=\"\\\n",
                                "\"x\"=dword:1\n",
                                "\xFF\xFE",
                                "[",
                                "\"",
                                "\\\n"};
    for (int round = 0; round < 200; ++round) {
        QByteArray content;
        for (int i = 0; i < 40; ++i)
            content += random.bounded(2) == 0
                           ? lines[random.bounded(8)]
                           : QByteArray(1, static_cast<char>(random.bounded(256)));
        const Registry reg(tree.write("config/random.reg", content));
        reg.Reg_GetValue(kUser, "A", "n");
    }
}

TEST(SettingsRegistryFile, WritesTheExportFormat) {
    test::TempTree tree;
    {
        Registry reg(tree.paths().registryFile());
        reg.RegCreateKey(kUser, kTwkKey + "\\Realtime Monitor\\Remote Popup");
        reg.Reg_SetString(kUser, kTwkKey + "\\HealthCheck", "ShowHints", "1");
        reg.Reg_SetDWord(kUser, kTwkKey + "\\HealthCheck", "Port", 514);
        reg.Reg_SetString(kUser, kTwkKey + "\\HealthCheck", QString(), "C:\\\"x\"");
        reg.RegSetValue(kUser, kTwkKey + "\\HealthCheck", "Big", RegType::Binary,
                        QByteArray(100, '\xAB'));
    }
    const QString text = QString::fromUtf8(tree.read("config/registry.reg"));
    EXPECT_TRUE(text.startsWith("Windows Registry Editor Version 5.00\n\n"));
    EXPECT_TRUE(text.contains("[HKEY_CURRENT_USER\\Software\\Brindlex\\TWK\\Realtime "
                              "Monitor\\Remote Popup]\n"));
    EXPECT_TRUE(text.contains("\"ShowHints\"=\"1\"\n\"Port\"=dword:00000202\n"
                              "@=\"C:\\\\\\\"x\\\"\"\n\"Big\"=hex:ab,ab,"));
    for (const QString& line : text.split('\n'))
        EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST(SettingsRegistryFile, BatchWritesOnceAtItsEnd) {
    test::TempTree tree;
    Registry reg(tree.paths().registryFile());
    {
        const Registry::Batch batch(reg);
        for (int i = 0; i < 60; ++i)
            reg.Reg_SetString(kUser, kTwkKey, QString::number(i), "v");
        EXPECT_FALSE(QFile::exists(reg.filePath()));
    }
    EXPECT_EQ(Registry(reg.filePath()).Reg_GetAllKeys(kUser, kTwkKey).size(), 60);
}

TEST(SettingsRegistryFile, TwoInstancesKeepEachOthersValues) {
    test::TempTree tree;
    Registry first(tree.paths().registryFile());
    Registry second(tree.paths().registryFile());
    first.Reg_SetString(kUser, kTwkKey, "A", "1");
    second.Reg_SetString(kUser, kTwkKey, "B", "2");
    first.Reg_SetString(kUser, kTwkKey, "C", "3");
    EXPECT_EQ(second.Reg_GetValue(kUser, kTwkKey, "C"), "3");
    const Registry third(tree.paths().registryFile());
    EXPECT_EQ(third.Reg_GetAllKeys(kUser, kTwkKey).size(), 3);
}

TEST(SettingsRegistryFile, OnlyTheOwnerMayReadTheFile) {
    test::TempTree tree;
    Registry reg(tree.paths().registryFile());
    reg.Reg_SetString(kUser, kTwkKey, "Password", "secret");
    struct stat st {};
    ASSERT_EQ(::stat(QFile::encodeName(reg.filePath()).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 0777, 0600u);
    EXPECT_EQ(QDir(tree.paths().configFolder).entryList(QDir::Files),
              QStringList{"registry.reg"}); // no temporary file left
}

} // namespace
} // namespace twk
