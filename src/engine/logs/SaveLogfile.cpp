#include "logs/SaveLogfile.h"

#include "core/Engine.h"
#include "core/Text.h"
#include "logs/SavedLogfile.h"

#include <QSaveFile>

#include <string>

namespace twk {

namespace {

constexpr std::size_t kWriteBlock = 1 << 16;

// Collects the file's lines and writes them in large blocks.
class LineWriter {
public:
    explicit LineWriter(QSaveFile& file) : file_(file) { buffer_.reserve(kWriteBlock + 4096); }
    void line(std::string_view text) {
        // A line end inside a value would shift every later group.
        if (text.find('\r') == std::string_view::npos) {
            buffer_.append(text);
        } else {
            for (const char c : text)
                buffer_.push_back(c == '\r' ? ' ' : c);
        }
        buffer_.append("\r\n");
        if (buffer_.size() >= kWriteBlock)
            flush();
    }
    void line(const QString& text) { line(std::string_view(text.toStdString())); }
    void icon(int image) { line(std::to_string(image + 1)); }
    bool flush() {
        if (!buffer_.empty() && file_.write(buffer_.data(), static_cast<qint64>(buffer_.size())) !=
                                    static_cast<qint64>(buffer_.size()))
            ok_ = false;
        buffer_.clear();
        return ok_;
    }

private:
    QSaveFile& file_;
    std::string buffer_;
    bool ok_ = true;
};

void writeRows(const Grid& grid, const QString& kind, LineWriter& out) {
    const int rows = grid.Rows();
    for (int r = 1; r <= rows; ++r) {
        if (kind == views::kSysLogErr) {
            out.icon(grid.CellIcon(r, 1));
            for (int c = 2; c <= 7; ++c)
                out.line(text::trim(grid.CellText(r, c)));
            out.icon(grid.CellIcon(r, 8));
            out.line(text::trim(grid.CellText(r, 9)));
            out.line(text::trim(grid.CellText(r, 10)));
        } else if (kind == views::kConsoleLog) {
            out.line(grid.CellText(r, 1));
            out.line(grid.CellText(r, 2));
        } else if (kind == views::kCronlog) {
            out.icon(grid.CellIcon(r, 1));
            out.line(grid.CellText(r, 2));
            out.line(grid.CellText(r, 3));
        } else {
            out.line(grid.CellText(r, 2));
        }
    }
}

QString withoutSlashes(QString date) {
    return date.remove(QLatin1Char('/'));
}

} // namespace

QString ProposedSaveName(const Engine& engine, const QDate& today) {
    const MainView& v = engine.view;
    const QString kind = v.CurrentView;
    const QString server =
        QString::fromStdString(std::string(text::trim(v.cbServer.text().toStdString())));
    QString name = kind + QStringLiteral("_") + server + QStringLiteral("_");
    if (kind == views::kConsoleLog)
        name += withoutSlashes(today.toString(Qt::ISODate));
    else
        name += withoutSlashes(v.pane(FirstEntry).text) + QStringLiteral("-") +
                withoutSlashes(v.pane(LastEntry).text);
    return engine.paths.inApp(name + QStringLiteral(".twk"));
}

bool SaveLogfile(Engine& engine, const QString& path) {
    bool saved = false;
    withErrorTail(engine.errors, "Mainfrm.mnuSave_Click()", [&] {
        const MainView& v = engine.view;
        const QString kind = v.CurrentView;
        if (SavedGroupLines(kind) == 0)
            return;
        QSaveFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            throw RunTimeError(errnum::PathFileAccessError,
                               "Path/File access error (" + path.toStdString() + ")");
        LineWriter out(file);
        const bool console = kind == views::kConsoleLog;
        out.line(kind);
        out.line(text::trim(v.cbServer.text().toStdString()));
        out.line(std::to_string(engine.Grid1.Rows()));
        out.line(console ? QStringLiteral("first entry") : v.pane(FirstEntry).text);
        out.line(console ? QStringLiteral("last entry") : v.pane(LastEntry).text);
        out.line(v.pane(FileSize).text);
        writeRows(engine.Grid1, kind, out);
        if (!out.flush() || !file.commit())
            throw RunTimeError(errnum::PathFileAccessError,
                               "Path/File access error (" + path.toStdString() + ")");
        saved = true;
    });
    return saved;
}

bool mnuSave_Click(Engine& engine, const std::function<QString(const SaveDialogRequest&)>& askPath,
                   const QDate& today) {
    if (SavedGroupLines(engine.view.CurrentView) == 0 || !askPath)
        return false;
    const QString path = askPath({kSaveDialogTitle, kSaveDefaultExtension, kSaveDialogFilter,
                                  ProposedSaveName(engine, today)});
    if (path.isEmpty())
        return false;
    return SaveLogfile(engine, path);
}

} // namespace twk
