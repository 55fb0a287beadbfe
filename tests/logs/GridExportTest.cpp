#include "logs/GridExport.h"

#include "TestSupport.h"
#include "core/Engine.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace twk;

namespace {

std::string capture(void (*writer)(const Engine&, std::FILE*, bool), const Engine& e,
                    bool visibleOnly = false) {
    char* data = nullptr;
    std::size_t size = 0;
    std::FILE* f = open_memstream(&data, &size);
    writer(e, f, visibleOnly);
    std::fclose(f);
    std::string out(data, size);
    std::free(data);
    return out;
}

class Export : public ::testing::Test {
protected:
    test::TempTree tree;
    test::FakeUi ui;
    NoProgress progress;
    Engine engine{tree.paths(), ui, progress};
    void SetUp() override {
        engine.Grid1.setColumns(
            {iconColumn("icon", "", 25), textColumn("text", "Error, \"Message\"", 100)});
        engine.Grid1.setRows(2);
        engine.Grid1.setCellIcon(1, 1, 7);
        engine.Grid1.setCellText(1, 2, std::string("a\"b\\c\r\n\x01 ä", 11));
        engine.view.CurrentView = QStringLiteral("SYS$LOG.ERR");
    }
};

} // namespace

TEST_F(Export, JsonHasNumbersForImagesNullForMissingAndEscapedTexts) {
    const std::string json = capture(writeGridJson, engine);
    EXPECT_EQ(json, "{\"view\":\"SYS$LOG.ERR\",\"rows\":[\n[7,\"a\\\"b\\\\c\\r\\n\\u0001 ä\"],\n"
                    "[null,\"\"]],\n\"panes\":[\"x/y\",\"last entry\",\"first entry\",\"file "
                    "size\",\"\"]}\n");
}

TEST_F(Export, CsvQuotesWhatNeedsIt) {
    const std::string csv = capture(writeGridCsv, engine);
    EXPECT_EQ(csv, ",\"Error, \"\"Message\"\"\"\r\n7,\"a\"\"b\\c\r\n\x01 ä\"\r\n,\r\n");
}

TEST_F(Export, HiddenRowsCanBeLeftOut) {
    engine.Grid1.setRowVisible(1, false);
    EXPECT_EQ(capture(writeGridCsv, engine, true), ",\"Error, \"\"Message\"\"\"\r\n,\r\n");
}
