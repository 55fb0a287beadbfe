// The registry store: typed values, their text reading, keys and values blind to case.

#include "core/settings/Registry.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

constexpr Hive kUser = Hive::CurrentUser;
const QString kKey = QStringLiteral("Software\\Brindlex\\TWK\\Test");

TEST(SettingsRegistry, EveryTypeSurvivesTheFile) {
    test::TempTree tree;
    const QString file = tree.paths().registryFile();
    QByteArray allBytes;
    for (int b = 0; b < 256; ++b)
        allBytes.append(static_cast<char>(b));
    const QString nonAscii = QStringLiteral("Grüße \"aus\" C:\\Temp\\ – ☃ 日本 \U0001F600");
    {
        Registry reg(file);
        reg.Reg_SetString(kUser, kKey, QStringLiteral("Text"), nonAscii);
        reg.Reg_SetString(kUser, kKey, QString(), QStringLiteral("default"));
        reg.Reg_SetString(kUser, kKey, QStringLiteral("Empty"), QString());
        reg.Reg_SetString(kUser, kKey, QStringLiteral("Two Lines"), QStringLiteral("a\r\nb"));
        reg.Reg_SetExpandSZ(kUser, kKey, QStringLiteral("Path"), QStringLiteral("%HOME%\\ä"));
        reg.Reg_SetDWord(kUser, kKey, QStringLiteral("Interval"), 60);
        reg.Reg_SetDWord(kUser, kKey, QStringLiteral("Max"), 0xFFFFFFFFu);
        reg.Reg_SetMultiSZ(kUser, kKey, QStringLiteral("Lines"), QStringLiteral("eins\r\nzwö"));
        reg.RegSetValue(kUser, kKey, QStringLiteral("Bytes"), RegType::Binary, allBytes);
        reg.RegCreateKey(kUser, kKey + "\\Empty Key");
    }
    const Registry reg(file);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Text")), nonAscii);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QString()), "default");
    EXPECT_TRUE(reg.RegSZExist(kUser, kKey, QStringLiteral("Empty")));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Two Lines"), "x"), "a\r\nb");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Path")), "%HOME%\\ä");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Interval")), "60");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Max")), "4294967295");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Lines")), "eins#zwö");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Bytes")),
              QString::fromLatin1(allBytes));
    EXPECT_TRUE(reg.RegKeyExist(kUser, kKey + "\\Empty Key"));
}

TEST(SettingsRegistry, MissingKeysValuesAndForeignTypesGiveTheDefault) {
    Registry reg;
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Nothing"), "dflt"), "dflt");
    reg.RegCreateKey(kUser, kKey);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Nothing"), "dflt"), "dflt");
    reg.RegSetValue(kUser, kKey, QStringLiteral("QWord"), static_cast<RegType>(11),
                    QByteArray(8, '\1'));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("QWord"), "dflt"), "dflt");
    reg.RegSetValue(kUser, kKey, QStringLiteral("Short"), RegType::DWord, QByteArray(2, '\1'));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("Short"), "dflt"), "dflt");
    EXPECT_FALSE(reg.RegKeyExist(Hive::LocalMachine, kKey));
}

TEST(SettingsRegistry, StringEndsAtItsFirstNull) {
    Registry reg;
    reg.RegCreateKey(kUser, kKey);
    reg.RegSetValue(kUser, kKey, QStringLiteral("S"), RegType::String,
                    utf16Bytes(QStringLiteral("abc") + QChar(0) + "rest" + QChar(0)));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QStringLiteral("S")), "abc");
}

TEST(SettingsRegistry, KeysAndValuesAreCaseBlindAndKeepTheirFirstSpelling) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey + "\\HealthCheck", QStringLiteral("ShowHints"), "1");
    reg.Reg_SetString(kUser, kKey.toUpper() + "\\HEALTHCHECK", QStringLiteral("SHOWHINTS"), "0");
    EXPECT_TRUE(reg.RegKeyExist(kUser, kKey.toLower() + "\\healthcheck\\"));
    EXPECT_EQ(reg.Reg_GetSubKeys(kUser, kKey), QStringList{"HealthCheck"});
    const auto values = reg.Reg_GetAllKeys(kUser, kKey + "\\HealthCheck");
    ASSERT_EQ(values.size(), 1);
    EXPECT_EQ(values[0].name, "ShowHints");
    EXPECT_EQ(values[0].text, "0");
}

TEST(SettingsRegistry, SetValueNeedsAnExistingKey) {
    Registry reg;
    EXPECT_FALSE(reg.RegSetValue(kUser, kKey, QStringLiteral("V"), RegType::String,
                                 utf16Bytes(QStringLiteral("x"))));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey));
    EXPECT_TRUE(reg.RegCreateKey(kUser, kKey));
    EXPECT_TRUE(reg.RegSetValue(kUser, kKey, QStringLiteral("V"), RegType::String,
                                utf16Bytes(QStringLiteral("x"))));
}

TEST(SettingsRegistry, DeletingAKeyTakesItsSubkeys) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey + "\\A\\B\\C", QStringLiteral("V"), "1");
    reg.Reg_SetString(kUser, kKey + "\\Other", QStringLiteral("V"), "2");
    EXPECT_TRUE(reg.Reg_DeleteKey(kUser, kKey + "\\a"));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey + "\\A\\B\\C"));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey + "\\A"));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey + "\\Other", QStringLiteral("V")), "2");
    EXPECT_FALSE(reg.Reg_DeleteKey(kUser, kKey + "\\A"));
    EXPECT_FALSE(reg.Reg_DeleteKey(kUser, QString())); // a hive stays
}

TEST(SettingsRegistry, AllValuesOfAKeyLeaveOutTheDefaultValue) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey, QString(), "default");
    reg.Reg_SetString(kUser, kKey, QStringLiteral("SERVER2"), "10.0.0.2");
    reg.Reg_SetDWord(kUser, kKey, QStringLiteral("SERVER1"), 7);
    const auto values = reg.Reg_GetAllKeys(kUser, kKey);
    ASSERT_EQ(values.size(), 2);
    EXPECT_EQ(values[0].name, "SERVER2");
    EXPECT_EQ(values[1].text, "7");
    EXPECT_TRUE(reg.Reg_DeleteValue(kUser, kKey, QStringLiteral("server2")));
    EXPECT_FALSE(reg.Reg_DeleteValue(kUser, kKey, QStringLiteral("server2")));
    EXPECT_EQ(reg.Reg_GetAllKeys(kUser, kKey).size(), 1);
}

} // namespace
} // namespace twk
