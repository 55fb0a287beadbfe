#include "tools/ErrorCodeForm.h"

#include "TestSupport.h"
#include "core/Engine.h"

#include <gtest/gtest.h>

using namespace twk;

namespace {

class ErrorCodeForm : public ::testing::Test {
protected:
    test::TempTree tree;
    test::FakeUi ui;
    NoProgress progress;
    Engine engine{tree.paths(), ui, progress};
    FrmErrorCode form{engine};
};

TEST_F(ErrorCodeForm, StartsWithTheHint) {
    EXPECT_EQ(errorCodeText::kCaption, " Error Code Translator...");
    EXPECT_EQ(form.Text4.text, "Converts NetWare Error Codes into Error Descriptions.\r\n"
                               "Enter the Error Code as decimal number (e.g. -601) or as\r\n"
                               "hex number (e.g. &hFFFFFDA7) and hit ENTER to convert.");
    EXPECT_EQ(form.cmdGetErrStrg.caption, "convert to error string...");
    form.resultField_GotFocus();
    EXPECT_EQ(form.focus, "cmdGetErrStrg");
}

TEST_F(ErrorCodeForm, KeyFilter) {
    for (const char c : std::string("0123456789-ABCDEFHabcdefh\b"))
        EXPECT_TRUE(FrmErrorCode::Text1_KeyPress(QChar(c))) << c;
    for (const char c : std::string("GgXx&+ .,zZ"))
        EXPECT_FALSE(FrmErrorCode::Text1_KeyPress(QChar(c))) << c;
    EXPECT_FALSE(FrmErrorCode::Text1_KeyPress(QChar(0x0663))); // an Arabic-Indic digit
}

TEST_F(ErrorCodeForm, ConvertsDecimalAndHexadecimalBadInputIsSaidInTheResult) {
    form.Text1.text = "-6-01";
    form.cmdGetErrStrg_Click();
    EXPECT_EQ(form.Text2.text, "");
    EXPECT_EQ(form.Text3.text, "");
    EXPECT_EQ(form.Text4.text, "This is no error code. Enter a decimal number (e.g. -601) or a hex "
                               "number (e.g. &hFFFFFDA7).");
    form.Text1.text = "-601";
    form.cmdGetErrStrg_Click();
    EXPECT_EQ(form.Text2.text, "-601");
    EXPECT_EQ(form.Text3.text, "&HFFFFFDA7");
    EXPECT_TRUE(form.Text4.text.startsWith("ERR_NO_SUCH_ENTRY: "));
    form.Text1.text = "&h89C5";
    form.cmdGetErrStrg_Click();
    EXPECT_EQ(form.Text2.text, "35269");
    EXPECT_EQ(form.Text3.text, "&H89C5");
    EXPECT_TRUE(form.Text4.text.startsWith("INTRUDER_DETECTION_LOCK: "));
    form.Text1.text = "12345";
    form.cmdGetErrStrg_Click();
    EXPECT_EQ(form.Text4.text, "Unknown error code.");
    EXPECT_TRUE(ui.messages.empty());
}

TEST_F(ErrorCodeForm, MissingTableIsTheOnlyMessage) {
    AppPaths paths = tree.paths();
    paths.shareFolder = tree.path("elsewhere");
    Engine bare(paths, ui, progress);
    FrmErrorCode noTable(bare);
    noTable.Text1.text = "-601";
    noTable.cmdGetErrStrg_Click();
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "File <errorcodes.txt> not available.   ");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].title, " Tarnwick");
    EXPECT_EQ(noTable.Text2.text, "");
}

} // namespace
