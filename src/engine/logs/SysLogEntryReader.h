#pragma once
// Reading the entries of a system error log: header, code line and message of each, as
// the grid's row shows them, with their texts stored in the grid's pool as they are read.

#include "logs/EventTypeRecognizer.h"
#include "logs/LineReader.h"
#include "logs/StringPool.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace twk {

class ErrorCapture;

/// One entry of the log, as the grid row shows it. Its texts are stored in the reader's
/// pool as they are read (the views show them, the ids are the grid's cells).
struct SysLogEntry {
    int statusIcon = 0;
    std::string_view date;
    std::string_view time;
    std::string_view state;
    std::string_view source;
    std::string_view category;
    int eventIcon = 24;
    std::string_view errorNr;
    std::string_view message;
    StringId dateId = kEmptyString;
    StringId timeId = kEmptyString;
    StringId errorNrId = kEmptyString;
    StringId messageId = kEmptyString;
    // Table index of each token, -1 when the token is missing or out of range.
    int severity = -1;
    int locus = -1;
    int klass = -1;
};

/// Reads entries one after the other from an open file.
class SysLogEntryReader {
public:
    /// Texts are stored into `pool` as they are read.
    SysLogEntryReader(LineReader& reader, LogLanguage language, ErrorCapture* errors,
                      StringPool& pool);
    /// Reads the next entry. False when the file ended before a line of it with text.
    bool read(SysLogEntry& entry);
    /// Reads up to `count` entries into `entries` and returns how many were read: fewer
    /// only when the file ended. Faster than one by one, the event types being found
    /// for all messages together.
    std::size_t readMany(SysLogEntry* entries, std::size_t count);

private:
    bool readEntry(SysLogEntry& entry); // all but the event type
    bool nextLine(std::string_view& line) { return reader_.next(line); }
    void readCodeLine(std::string_view code, SysLogEntry& entry);
    int lookup(std::string_view token, int tableSize, const char* what);
    void reportOutOfRange(std::int64_t index, const char* what);
    void appendToMessage(std::string_view raw, bool lineFeedToBlank);

    LineReader& reader_;
    LogLanguage language_;
    ErrorCapture* errors_;
    StringPool& pool_;
    std::string rawDate_;
    StringId dateId_ = kEmptyString; // kept from entry to entry when a header has no double blank
    // Error numbers repeat: recent ones are shared.
    RecentTexts errorNumbers_;
    bool reported_ = false;
};

} // namespace twk
