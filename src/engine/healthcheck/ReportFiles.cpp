#include "healthcheck/ReportFiles.h"

#include <QDir>
#include <QFile>

namespace twk {

namespace {
constexpr std::size_t kFlushAt = std::size_t{1} << 16;
} // namespace

struct LineFileWriter::File {
    QFile file;
};

LineFileWriter::LineFileWriter(const QString& path, bool append) : file_(std::make_unique<File>()) {
    file_->file.setFileName(path);
    ok_ = file_->file.open(append ? QIODevice::WriteOnly | QIODevice::Append
                                  : QIODevice::WriteOnly | QIODevice::Truncate);
}

LineFileWriter::~LineFileWriter() {
    close();
}

void LineFileWriter::line(std::string_view text) {
    buffer_.append(text);
    buffer_.append("\r\n");
    if (buffer_.size() >= kFlushAt)
        flushBuffer();
}

void LineFileWriter::flushBuffer() {
    if (ok_ && !buffer_.empty() &&
        file_->file.write(buffer_.data(), static_cast<qint64>(buffer_.size())) !=
            static_cast<qint64>(buffer_.size()))
        ok_ = false;
    buffer_.clear();
}

bool LineFileWriter::close() {
    flushBuffer();
    if (file_->file.isOpen())
        file_->file.close();
    return ok_;
}

QString stepBannerName(int step) {
    static const char* const kNames[] = {
        "Verifying DS Versions",   "Time Synchronization", "Server-to-Server Synchronization",
        "Replica Synchronization", "External References",  "Replica States",
        "Schema Synchronization"};
    return step >= 1 && step <= 7 ? QString::fromLatin1(kNames[step - 1]) : QString();
}

void writeReportHead(LineFileWriter& out, int step) {
    const std::string rule(step == 3 || step == 7 ? 76 : 78, '-');
    out.line(rule);
    out.line(QStringLiteral("   STEP %1: %2").arg(step).arg(stepBannerName(step)));
    out.line(rule);
    out.line();
}

void writeReportEnd(LineFileWriter& out, const QString& stateCaption) {
    out.line();
    out.line();
    out.line(QStringLiteral("Status: ") + stateCaption.toUpper());
}

QString reportFile(const QString& reportsFolder, const QString& name) {
    return QDir(reportsFolder).filePath(name);
}

} // namespace twk
