#pragma once
// Failures that nothing expected: every routine hands them, under its own name with
// its parameter names, to one capture that appends a formatted text to error.txt.

#include "core/AppPaths.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <exception>
#include <functional>
#include <string>

namespace twk {

/// Error numbers of the run-time errors the engine raises.
namespace errnum {
inline constexpr std::int32_t InvalidCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t TypeMismatch = 13;
inline constexpr std::int32_t FileNotFound = 53;
inline constexpr std::int32_t InputPastEndOfFile = 62;
inline constexpr std::int32_t PermissionDenied = 70;
inline constexpr std::int32_t PathFileAccessError = 75;
inline constexpr std::int32_t PathNotFound = 76;
} // namespace errnum

/// Base of the numbers of object errors, and the first number of the program's own.
inline constexpr std::int32_t vbObjectError = static_cast<std::int32_t>(0x80040000u);
inline constexpr std::int32_t ERRMAP_APP_FIRST = vbObjectError + 512;

/// A run-time error raised inside the engine.
class RunTimeError : public std::exception {
public:
    RunTimeError(std::int32_t number, std::string description, std::string source = "Tarnwick");
    const char* what() const noexcept override { return description_.c_str(); }
    std::int32_t number() const { return number_; }
    const std::string& description() const { return description_; }
    const std::string& source() const { return source_; }

private:
    std::int32_t number_;
    std::string description_;
    std::string source_;
};

/// The standard text of a run-time error number, empty when there is none.
QString standardErrorText(std::int32_t number);

struct ErrorContext {
    std::int32_t number = 0;
    QString source;
    QString description;
    QString methodName;
    QString computer;
    QDateTime time;
    QString application = QStringLiteral("Tarnwick");
    QString version;
};

class ErrorCapture {
public:
    explicit ErrorCapture(AppPaths paths);

    /// The error text of one failure, by the program's template.
    static QString FormatError(const ErrorContext& context);

    /// Formats the failure and appends it to error.txt; never fails in turn.
    void HandleError(const QString& methodName, std::int32_t number, const QString& description,
                     const QString& source = QStringLiteral("Tarnwick"));
    /// The same for a caught exception.
    void HandleException(const QString& methodName, const std::exception& error);

    /// Called after each capture (the window shows the report dialog, the command line a note).
    std::function<void(const ErrorContext&)> onError;
    /// Number of failures captured in this run.
    int count() const { return count_; }
    QString errorFile() const;

private:
    AppPaths paths_;
    int count_ = 0;
};

/// The error tail of a routine: runs `body`; whatever it throws goes to the capture
/// under `methodName` (the routine's name with its parameter names).
template <class Body>
bool withErrorTail(ErrorCapture& capture, const char* methodName, Body&& body) {
    try {
        body();
        return true;
    } catch (const std::exception& e) {
        capture.HandleException(QString::fromUtf8(methodName), e);
    } catch (...) {
        capture.HandleError(QString::fromUtf8(methodName), errnum::InvalidCall,
                            QStringLiteral("Unknown failure"));
    }
    return false;
}

} // namespace twk
