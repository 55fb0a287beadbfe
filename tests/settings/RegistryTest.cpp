// The registry store: typed values, their text reading, keys and values blind to case.

#include "core/settings/Registry.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

namespace twk {
namespace {

const QString kKey = "Software\\Brindlex\\TWK\\Test";

TEST(SettingsRegistry, EveryTypeSurvivesTheFile) {
    test::TempTree tree;
    const QString file = tree.paths().registryFile();
    QByteArray allBytes;
    for (int b = 0; b < 256; ++b)
        allBytes.append(static_cast<char>(b));
    const QString nonAscii = "Grüße \"aus\" C:\\Temp\\ – ☃ 日本 \U0001F600";
    {
        Registry reg(file);
        reg.Reg_SetString(kUser, kKey, "Text", nonAscii);
        reg.Reg_SetString(kUser, kKey, QString(), "default");
        reg.Reg_SetString(kUser, kKey, "Empty", QString());
        reg.Reg_SetString(kUser, kKey, "Two Lines", "a\r\nb");
        reg.Reg_SetExpandSZ(kUser, kKey, "Path", "%HOME%\\ä");
        reg.Reg_SetDWord(kUser, kKey, "Interval", 60);
        reg.Reg_SetDWord(kUser, kKey, "Max", 0xFFFFFFFFu);
        reg.Reg_SetMultiSZ(kUser, kKey, "Lines", "eins\r\nzwö");
        reg.RegSetValue(kUser, kKey, "Bytes", RegType::Binary, allBytes);
        reg.RegCreateKey(kUser, kKey + "\\Empty Key");
    }
    const Registry reg(file);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Text"), nonAscii);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, QString()), "default");
    EXPECT_TRUE(reg.RegSZExist(kUser, kKey, "Empty"));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Two Lines", "x"), "a\r\nb");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Path"), "%HOME%\\ä");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Interval"), "60");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Max"), "4294967295");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Lines"), "eins#zwö");
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Bytes"), QString::fromLatin1(allBytes));
    EXPECT_TRUE(reg.RegKeyExist(kUser, kKey + "\\Empty Key"));
}

TEST(SettingsRegistry, MissingKeysValuesAndForeignTypesGiveTheDefault) {
    Registry reg;
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Nothing", "dflt"), "dflt");
    reg.RegCreateKey(kUser, kKey);
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Nothing", "dflt"), "dflt");
    reg.RegSetValue(kUser, kKey, "QWord", static_cast<RegType>(11), QByteArray(8, '\1'));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "QWord", "dflt"), "dflt");
    reg.RegSetValue(kUser, kKey, "Short", RegType::DWord, QByteArray(2, '\1'));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "Short", "dflt"), "dflt");
    EXPECT_FALSE(reg.RegKeyExist(Hive::LocalMachine, kKey));
}

TEST(SettingsRegistry, StringEndsAtItsFirstNull) {
    Registry reg;
    reg.RegCreateKey(kUser, kKey);
    reg.RegSetValue(kUser, kKey, "S", RegType::String,
                    utf16Bytes(QStringLiteral("abc") + QChar(0) + "rest" + QChar(0)));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey, "S"), "abc");
}

TEST(SettingsRegistry, KeysAndValuesAreCaseBlindAndKeepTheirFirstSpelling) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey + "\\HealthCheck", "ShowHints", "1");
    reg.Reg_SetString(kUser, kKey.toUpper() + "\\HEALTHCHECK", "SHOWHINTS", "0");
    EXPECT_TRUE(reg.RegKeyExist(kUser, kKey.toLower() + "\\healthcheck\\"));
    EXPECT_EQ(reg.Reg_GetSubKeys(kUser, kKey), QStringList{"HealthCheck"});
    const auto values = reg.Reg_GetAllKeys(kUser, kKey + "\\HealthCheck");
    ASSERT_EQ(values.size(), 1);
    EXPECT_EQ(values[0].name, "ShowHints");
    EXPECT_EQ(values[0].text, "0");
}

TEST(SettingsRegistry, SetValueNeedsAnExistingKey) {
    Registry reg;
    EXPECT_FALSE(reg.RegSetValue(kUser, kKey, "V", RegType::String, utf16Bytes("x")));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey));
    EXPECT_TRUE(reg.RegCreateKey(kUser, kKey));
    EXPECT_TRUE(reg.RegSetValue(kUser, kKey, "V", RegType::String, utf16Bytes("x")));
}

TEST(SettingsRegistry, DeletingAKeyTakesItsSubkeys) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey + "\\A\\B\\C", "V", "1");
    reg.Reg_SetString(kUser, kKey + "\\Other", "V", "2");
    EXPECT_TRUE(reg.Reg_DeleteKey(kUser, kKey + "\\a"));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey + "\\A\\B\\C"));
    EXPECT_FALSE(reg.RegKeyExist(kUser, kKey + "\\A"));
    EXPECT_EQ(reg.Reg_GetValue(kUser, kKey + "\\Other", "V"), "2");
    EXPECT_FALSE(reg.Reg_DeleteKey(kUser, kKey + "\\A"));
    EXPECT_FALSE(reg.Reg_DeleteKey(kUser, QString())); // a hive stays
}

TEST(SettingsRegistry, AllValuesOfAKeyLeaveOutTheDefaultValue) {
    Registry reg;
    reg.Reg_SetString(kUser, kKey, QString(), "default");
    reg.Reg_SetString(kUser, kKey, "SERVER2", "10.0.0.2");
    reg.Reg_SetDWord(kUser, kKey, "SERVER1", 7);
    const auto values = reg.Reg_GetAllKeys(kUser, kKey);
    ASSERT_EQ(values.size(), 2);
    EXPECT_EQ(values[0].name, "SERVER2");
    EXPECT_EQ(values[1].text, "7");
    EXPECT_TRUE(reg.Reg_DeleteValue(kUser, kKey, "server2"));
    EXPECT_FALSE(reg.Reg_DeleteValue(kUser, kKey, "server2"));
    EXPECT_EQ(reg.Reg_GetAllKeys(kUser, kKey).size(), 1);
}

} // namespace
} // namespace twk
