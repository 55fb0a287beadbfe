#pragma once
// The two ways the health check reads the logs the server tools leave behind.
//
// Field reading: each read gives one delimited field. Leading blanks are dropped; a field
// ends at a comma or at the end of the line (CR, LF or CR LF); a field that begins with a
// double quote runs to the closing quote, and what follows it up to the next comma or
// line end is skipped. So a line with commas counts as several fields.
//
// Line reading is LineReader's: a line ends at CR or CR LF, a lone LF stays in it.
//
// Both read sequentially in blocks, so a log of any size takes one pass.

#include "logs/LineLogPass.h"

#include <QString>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace twk {

class FieldReader {
public:
    explicit FieldReader(const QString& path);
    ~FieldReader();
    FieldReader(const FieldReader&) = delete;
    FieldReader& operator=(const FieldReader&) = delete;

    bool isOpen() const;
    /// The next field; false at the end of the file.
    bool next(std::string& field);

private:
    /// The byte at the read position, -1 at the end.
    int peek();
    void advance() { ++pos_; }
    bool fill();

    struct File;
    std::unique_ptr<File> file_;
    std::string buffer_;
    std::size_t pos_ = 0;
    bool eof_ = false;
};

/// ASCII letters lower- or upper-cased (other bytes as they are). Tests of ASCII words on
/// the result are the same as on the fully case-folded text. (The form that writes into
/// a reused buffer is LineLogPass's.)
std::string lowerAscii(std::string_view text);
std::string upperAscii(std::string_view text);

/// Whether `text` contains `needle` (case-sensitive).
inline bool has(std::string_view text, std::string_view needle) {
    return text.find(needle) != std::string_view::npos;
}

/// Throws the run-time error "File not found" (53) for a log that can't be opened.
[[noreturn]] void throwFileNotFound(const QString& path);

} // namespace twk
