#pragma once
// The plain trace of debug mode: lines appended to debug.txt in the application folder.

#include <QString>

namespace twk {

class DebugTrace {
public:
    explicit DebugTrace(QString filePath) : path_(std::move(filePath)) {}

    /// With `header`: 21 underscores, 21 blanks, the time, again both lines; then the
    /// text; with `blankLine` a line of one blank after it.
    void traceText(const QString& text, bool header, bool blankLine);
    /// The time, " - " and the text on one line.
    void traceEvent(const QString& text);

    const QString& path() const { return path_; }

private:
    void append(const QString& lines);
    QString path_;
};

} // namespace twk
