#pragma once
// NetWare and eDirectory error codes and their texts. The table is data delivered with
// the program (share/data/errorcodes.txt, one code a line) and stands in for the error
// text library of the network client: NWstrerror answers from it.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

namespace twk {

struct AppPaths;

inline const QString kErrorCodeFileName = QStringLiteral("errorcodes.txt");

struct ErrorCodeEntry {
    std::int32_t code = 0;
    QString name; ///< the symbolic name, empty when the code has none
    QString text;
};

class ErrorCodeTable {
public:
    /// Reads the table's lines: "CODE NAME TEXT" with CODE decimal or 0x hexadecimal
    /// and NAME "-" for none; empty lines and lines starting with "#" are skipped.
    /// Lines that cannot be read are left out and counted.
    static ErrorCodeTable parse(const QByteArray& bytes);
    /// Reads the file; nullopt when it cannot be read.
    static std::optional<ErrorCodeTable> load(const QString& path);

    const ErrorCodeEntry* find(std::int32_t code) const;
    const std::vector<ErrorCodeEntry>& entries() const { return entries_; }
    int badLines() const { return badLines_; }

private:
    std::vector<ErrorCodeEntry> entries_; // sorted by code
    int badLines_ = 0;
};

/// Where the delivered table lies.
QString errorCodeFile(const AppPaths& paths);
/// The delivered table, read at first use and kept; nullptr when its file cannot be
/// read (the next call tries again).
const ErrorCodeTable* errorCodeTable(const AppPaths& paths);
/// The message when the table is missing: "File <errorcodes.txt> not available.   ".
QString errorTableMissingText();

/// The text of an error code: "NAME: text", the text alone when the code has no name,
/// and "Unknown error code." for a code the table does not hold.
QString NWstrerror(const ErrorCodeTable& table, std::int32_t code);

/// Reads a code as typed: a decimal number with an optional sign ("-601", "35073";
/// 2147483648 to 4294967295 are taken as the 32-bit pattern), or a hexadecimal one of
/// up to eight digits marked by "&h", "0x" or a leading or trailing "h"
/// ("&hFFFFFDA7", "0x8801", "hFFFFFDA7", "89FFh"). Blanks around it are allowed.
std::optional<std::int32_t> parseErrorCode(const QString& text);
/// The hexadecimal digits of a code's 32-bit pattern, upper case: -601 -> "FFFFFDA7".
QString errorCodeHex(std::int32_t code);

/// The code a log message names behind "error: -" or "error #" (found without regard
/// to case), as written: "-601", "0x8801", "35073"; empty when there is none.
QString errorCodeInMessage(const QString& message);

/// The lines the command line prints for a code: decimal, hexadecimal, text.
QStringList errorCodeReport(const ErrorCodeTable& table, std::int32_t code);

} // namespace twk
