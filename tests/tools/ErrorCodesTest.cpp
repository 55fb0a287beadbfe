#include "tools/ErrorCodes.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

const ErrorCodeTable& shipped() {
    static const ErrorCodeTable* table = [] {
        test::TempTree tree;
        return errorCodeTable(tree.paths());
    }();
    EXPECT_NE(table, nullptr);
    return *table;
}

} // namespace

TEST(ErrorCodeTable, ReadsCodesNamesAndTexts) {
    const ErrorCodeTable t =
        ErrorCodeTable::parse("# comment\r\n"
                              "\n"
                              "-601  ERR_NO_SUCH_ENTRY   No  such   object.\r\n"
                              "0x8801 INVALID_CONNECTION Bad handle.\n"
                              "0X89ff - General failure.\n"
                              "42 ONLY_A_NAME\n"
                              "abc NAME Text\n"
                              "0x123456789 TOO_LONG Text\n"
                              "-601 ERR_NO_SUCH_ENTRY The later line wins.\n");
    ASSERT_EQ(t.entries().size(), 3u);
    EXPECT_EQ(t.badLines(), 3);
    const ErrorCodeEntry* e = t.find(-601);
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->name, "ERR_NO_SUCH_ENTRY");
    EXPECT_EQ(e->text, "The later line wins.");
    ASSERT_NE(t.find(0x8801), nullptr);
    EXPECT_EQ(t.find(0x8801)->text, "Bad handle.");
    ASSERT_NE(t.find(0x89FF), nullptr);
    EXPECT_EQ(t.find(0x89FF)->name, "");
    EXPECT_EQ(t.find(42), nullptr);
    EXPECT_EQ(NWstrerror(t, 0x89FF), "General failure.");
    EXPECT_EQ(NWstrerror(t, 0x8801), "INVALID_CONNECTION: Bad handle.");
    EXPECT_EQ(NWstrerror(t, 7), "Unknown error code.");
}

TEST(ErrorCodeTable, TheShippedTableIsCompleteAndClean) {
    const ErrorCodeTable& t = shipped();
    EXPECT_EQ(t.badLines(), 0);
    int directory = 0, client = 0, server = 0;
    for (const ErrorCodeEntry& e : t.entries()) {
        EXPECT_FALSE(e.text.isEmpty()) << e.code;
        EXPECT_TRUE(e.text.endsWith('.')) << e.code;
        directory += e.code <= -601 && e.code >= -799 ? 1 : 0;
        client += (e.code & 0xFF00) == 0x8800 ? 1 : 0;
        server += (e.code & 0xFF00) == 0x8900 ? 1 : 0;
    }
    EXPECT_GE(directory, 150);
    EXPECT_GE(client, 40);
    EXPECT_GE(server, 80);
    for (const int code : {-601,   -625,   -626,   -632,   -634,   -636,   -641,   -654,   -659,
                           -663,   -666,   -669,   -672,   -698,   -699,   -715,   0x8801, 0x880F,
                           0x8836, 0x8980, 0x899C, 0x89C5, 0x89DE, 0x89FC, 0x89FF, 0})
        EXPECT_NE(t.find(code), nullptr) << code;
    EXPECT_EQ(NWstrerror(t, -601),
              "ERR_NO_SUCH_ENTRY: The object does not exist in the tree, or the context used to "
              "name it is wrong.");
}

TEST(ErrorCodeTable, MissingFileGivesNoTable) {
    test::TempTree tree;
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path("nothing-here");
    EXPECT_EQ(errorCodeTable(paths), nullptr);
    EXPECT_FALSE(ErrorCodeTable::load(tree.path("missing.txt")).has_value());
    tree.write("nothing-here/data/errorcodes.txt", "5 FIVE Five.\n");
    const ErrorCodeTable* later = errorCodeTable(paths); // the next call reads it
    ASSERT_NE(later, nullptr);
    EXPECT_EQ(NWstrerror(*later, 5), "FIVE: Five.");
}

TEST(ErrorCodeParsing, DecimalAndHexadecimalForms) {
    EXPECT_EQ(parseErrorCode("-601"), -601);
    EXPECT_EQ(parseErrorCode("  -601 "), -601);
    EXPECT_EQ(parseErrorCode("+5"), 5);
    EXPECT_EQ(parseErrorCode("35073"), 35073);
    EXPECT_EQ(parseErrorCode("4294966695"), -601); // the 32-bit pattern of -601
    EXPECT_EQ(parseErrorCode("-2147483648"), INT32_MIN);
    EXPECT_EQ(parseErrorCode("&hFFFFFDA7"), -601);
    EXPECT_EQ(parseErrorCode("&HfffffdA7"), -601);
    EXPECT_EQ(parseErrorCode("0x8801"), 0x8801);
    EXPECT_EQ(parseErrorCode("hFFFFFDA7"), -601);
    EXPECT_EQ(parseErrorCode("89FFh"), 0x89FF);
    for (const char* bad : {"", "-", "0x", "&h", "h", "12AB", "&h123456789", "99999999999",
                            "-2147483649", "4294967296", "1 2", "--5", "0x-5", "six"})
        EXPECT_FALSE(parseErrorCode(bad).has_value()) << bad;
    EXPECT_EQ(errorCodeHex(-601), "FFFFFDA7");
    EXPECT_EQ(errorCodeHex(0x8801), "8801");
    EXPECT_EQ(errorCodeHex(0), "0");
}

TEST(ErrorCodeParsing, CodeNamedInAMessage) {
    EXPECT_EQ(errorCodeInMessage("Sync failed, error: -625 on replica"), "-625");
    EXPECT_EQ(errorCodeInMessage("Sync failed, ERROR: -625"), "-625");
    EXPECT_EQ(errorCodeInMessage("login failed with error #-669."), "-669");
    EXPECT_EQ(errorCodeInMessage("Request failed, Error # 35073"), "35073");
    EXPECT_EQ(errorCodeInMessage("Request failed, error #0x8801 (x)"), "0x8801");
    EXPECT_EQ(errorCodeInMessage("error #abc"), "");
    EXPECT_EQ(errorCodeInMessage("error: -x"), "");
    EXPECT_EQ(errorCodeInMessage("no code here"), "");
}

TEST(ErrorCodeParsing, CommandLineReport) {
    const ErrorCodeTable t = ErrorCodeTable::parse("-601 ERR_NO_SUCH_ENTRY No such object.\n");
    EXPECT_EQ(errorCodeReport(t, -601),
              QStringList({"decimal:      -601", "hexadecimal:  0xFFFFFDA7",
                           "text:         ERR_NO_SUCH_ENTRY: No such object."}));
    EXPECT_EQ(errorCodeReport(t, 0x8801).last(), "text:         Unknown error code.");
}
