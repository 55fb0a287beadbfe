#pragma once
// An engine on a throw-away folder tree, with helpers to load a log of a kind as the
// window does and to read back the grid, the panes and the menus.

#include "LogText.h"
#include "TestSupport.h"
#include "core/Engine.h"
#include "logs/LogPipeline.h"

#include <QString>

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

namespace twk::test {

// Message boxes compare whole: text, icon, buttons and title.
inline bool operator==(const RecordedMessage& a, const RecordedMessage& b) {
    return a.text == b.text && a.icon == b.icon && a.buttons == b.buttons && a.title == b.title;
}
inline void PrintTo(const RecordedMessage& m, std::ostream* os) {
    *os << '"' << m.text.toStdString() << "\" icon " << static_cast<int>(m.icon) << " buttons "
        << static_cast<int>(m.buttons) << " title \"" << m.title.toStdString() << '"';
}
/// A message box as the program shows it, under its own title.
inline RecordedMessage box(const QString& text, MsgIcon icon, MsgButtons buttons = MsgButtons::Ok) {
    return {text, icon, buttons, QStringLiteral(" Tarnwick")};
}

/// The texts of the status panes `numbers` (1 to 5).
inline QStringList panes(const Engine& engine, std::initializer_list<int> numbers) {
    QStringList texts;
    for (int n : numbers)
        texts << engine.view.pane(n).text;
    return texts;
}

class LogFixture : public ::testing::Test {
protected:
    TempTree tree;
    FakeUi ui;
    RecordingProgress progress;
    Engine engine{tree.paths(), ui, progress};

    QString write(const QString& name, const QByteArray& bytes) { return tree.write(name, bytes); }
    bool load(const QString& kind, const QByteArray& bytes) {
        return LoadLogFile(engine, kind, write(kind, bytes));
    }
    QString pane(int n) const { return engine.view.pane(n).text; }
    QStringList panes(std::initializer_list<int> numbers) const {
        return test::panes(engine, numbers);
    }
    std::string cell(int row, int col) const {
        return std::string(engine.Grid1.CellText(row, col));
    }
    std::uint32_t colour(int row, int col) const { return engine.Grid1.CellForeColor(row, col); }
    bool bold(int row, int col) const { return engine.Grid1.CellFontBold(row, col); }
    bool menuEnabled(const char* name) const {
        return engine.view.menuEnabled(QString::fromLatin1(name));
    }
    bool menuVisible(const char* name) const {
        return engine.view.menuVisible(QString::fromLatin1(name));
    }
    /// The rows of one console list, in list order.
    std::vector<int> listRows(int kind) const {
        std::vector<int> rows;
        const auto& list = engine.analysis.consoleEvents[static_cast<std::size_t>(kind)];
        for (std::size_t i = 1; i < list.size(); ++i)
            rows.push_back(list[i].row);
        return rows;
    }
};

} // namespace twk::test
