#pragma once
// The text reports of the health check (Reports/hcstepN.txt and the work files beside
// them) are written line by line, and every line, the last too, ends in CR LF. Each
// report starts with a banner of three lines and a blank line and ends with two blank
// lines and its status.

#include <QString>

#include <memory>
#include <string>
#include <string_view>

namespace twk {

class LineFileWriter {
public:
    /// Creates (or with `append` extends) the file; ok() says whether that worked.
    explicit LineFileWriter(const QString& path, bool append = false);
    ~LineFileWriter();
    LineFileWriter(const LineFileWriter&) = delete;
    LineFileWriter& operator=(const LineFileWriter&) = delete;

    bool ok() const { return ok_; }
    void line(std::string_view text = {});
    void line(const QString& text) { line(std::string_view(text.toUtf8().toStdString())); }
    void line(const char* text) { line(std::string_view(text)); }
    /// Writes what is buffered; false when a write failed.
    bool close();

private:
    void flushBuffer();
    struct File;
    std::unique_ptr<File> file_;
    std::string buffer_;
    bool ok_ = false;
};

/// The name of a step in the banner ("Verifying DS Versions", ...), 1 to 7.
QString stepBannerName(int step);
/// The three banner lines and the blank line of a step's report.
void writeReportHead(LineFileWriter& out, int step);
/// Two blank lines and "Status: " + the upper-cased state caption.
void writeReportEnd(LineFileWriter& out, const QString& stateCaption);

/// Reports/hcstepN.txt and the other files of the Reports folder.
QString reportFile(const QString& reportsFolder, const QString& name);

} // namespace twk
