#pragma once
// Failures that nothing expected: every routine hands them, under its own name with
// its parameter names, to one capture that appends a formatted text to error.txt.

#include "core/AppPaths.h"
#include "core/UiPort.h"

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

/// What a trap does with a failure in step mode.
enum class StepAnswer { Report, Retry, ToCaller };

class ErrorCapture {
public:
    explicit ErrorCapture(AppPaths paths);

    /// The step mode setting, for development: with kStoppedOnError every trapped failure
    /// first asks whether to retry the routine, pass the failure to the calling routine's
    /// trap, or stop asking (the setting becomes kNoStop). A release runs with kNoStop.
    static inline const QString kStoppedOnError = QStringLiteral("Stopped on Error");
    static inline const QString kNoStop = QStringLiteral("NoStop");
    QString StopMode = kNoStop;
    /// Asks the step mode question (Yes, No or Cancel); the engine shows it as a box.
    std::function<MsgResult(const QString& text)> askStepMode;
    /// A trap retries at most this often in a row, so that a box that always answers Yes
    /// (a headless run) cannot keep a failing routine going for ever.
    static constexpr int kMaxStepRetries = 9;

    /// The step mode decision for a failure caught by a trap that has already retried
    /// `retries` times; `outermost` when no calling routine has a trap of its own.
    StepAnswer StopOnError(const QString& methodName, const std::exception* error, int retries,
                           bool outermost);
    /// The text of the step mode box.
    static QString StepModeText(const QString& errorText);

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

    /// Counts the traps now running, so that a trap knows whether a caller has one.
    class TrapScope {
    public:
        explicit TrapScope(ErrorCapture& capture) : capture_(capture) { ++capture_.depth_; }
        ~TrapScope() { --capture_.depth_; }
        TrapScope(const TrapScope&) = delete;
        TrapScope& operator=(const TrapScope&) = delete;
        bool outermost() const { return capture_.depth_ == 1; }

    private:
        ErrorCapture& capture_;
    };

private:
    ErrorContext contextOf(const QString& methodName, const std::exception* error) const;

    AppPaths paths_;
    int count_ = 0;
    int depth_ = 0;
};

/// The error tail of a routine: runs `body`; whatever it throws goes to the capture
/// under `methodName` (the routine's name with its parameter names).
/// In step mode the routine may run again, or the failure may go on to the trap of the
/// calling routine.
template <class Body>
bool withErrorTail(ErrorCapture& capture, const char* methodName, Body&& body) {
    const ErrorCapture::TrapScope scope(capture);
    const QString name = QString::fromUtf8(methodName);
    for (int retries = 0;; ++retries) {
        try {
            body();
            return true;
        } catch (const std::exception& e) {
            const StepAnswer answer = capture.StopOnError(name, &e, retries, scope.outermost());
            if (answer == StepAnswer::Retry)
                continue;
            if (answer == StepAnswer::ToCaller)
                throw;
            capture.HandleException(name, e);
        } catch (...) {
            const StepAnswer answer =
                capture.StopOnError(name, nullptr, retries, scope.outermost());
            if (answer == StepAnswer::Retry)
                continue;
            if (answer == StepAnswer::ToCaller)
                throw;
            capture.HandleError(name, errnum::InvalidCall, QStringLiteral("Unknown failure"));
        }
        return false;
    }
}

} // namespace twk
