#include "core/ErrorCapture.h"

#include "core/Version.h"

#include <QFile>
#include <QSysInfo>

#include <new>

namespace twk {

RunTimeError::RunTimeError(std::int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

QString standardErrorText(std::int32_t number) {
    switch (number) {
    case errnum::InvalidCall:
        return QStringLiteral("Invalid procedure call or argument");
    case errnum::Overflow:
        return QStringLiteral("Overflow");
    case errnum::OutOfMemory:
        return QStringLiteral("Out of memory");
    case errnum::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case errnum::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case errnum::FileNotFound:
        return QStringLiteral("File not found");
    case errnum::InputPastEndOfFile:
        return QStringLiteral("Input past end of file");
    case errnum::PermissionDenied:
        return QStringLiteral("Permission denied");
    case errnum::PathFileAccessError:
        return QStringLiteral("Path/File access error");
    case errnum::PathNotFound:
        return QStringLiteral("Path not found");
    default:
        return {};
    }
}

ErrorCapture::ErrorCapture(AppPaths paths) : paths_(std::move(paths)) {}

QString ErrorCapture::errorFile() const {
    return paths_.inApp(QStringLiteral("error.txt"));
}

QString ErrorCapture::FormatError(const ErrorContext& c) {
    const QString nl = QStringLiteral("\r\n");
    const auto unsignedNumber = static_cast<std::uint32_t>(c.number);
    const QString hex = QString::number(unsignedNumber, 16).toUpper();
    const auto rel1 = static_cast<std::int64_t>(c.number) - vbObjectError;
    const auto rel2 = static_cast<std::int64_t>(c.number) - ERRMAP_APP_FIRST;
    QString t = QStringLiteral(
        "%Descr% %nl%  Time='%Time%' App='%App%:%Ver%' ADO-version='%ADOVersion%' "
        "Computer='%Comp%' %nl%  Method: %MethodName% %nl%  Number: %ErrNum% = &H%ErrHex% = "
        "vbObjectError %ErrNumRel1% = ERRMAP_APP_FIRST %ErrNumRel2% %ErrStd%%nl%  Source: "
        "%Source% %nl%  Description: %Descr%%nl%");
    // %Descr% is replaced last so that a description holding a field name stays as it is.
    t.replace(QStringLiteral("%nl%"), nl);
    t.replace(QStringLiteral("%Time%"), c.time.toString(QStringLiteral("dd/MM/yyyy hh:mm:ss")));
    t.replace(QStringLiteral("%App%"), c.application);
    t.replace(QStringLiteral("%Ver%"), c.version);
    t.replace(QStringLiteral("%ADOVersion%"), QStringLiteral("?"));
    t.replace(QStringLiteral("%Comp%"), c.computer);
    t.replace(QStringLiteral("%MethodName%"), c.methodName);
    t.replace(QStringLiteral("%ErrNumRel1%"), QString::number(rel1));
    t.replace(QStringLiteral("%ErrNumRel2%"), QString::number(rel2));
    t.replace(QStringLiteral("%ErrNum%"), QString::number(c.number));
    t.replace(QStringLiteral("%ErrHex%"), hex);
    t.replace(QStringLiteral("%ErrStd%"), standardErrorText(c.number));
    t.replace(QStringLiteral("%Source%"), c.source);
    t.replace(QStringLiteral("%Descr%"), c.description);
    return t;
}

void ErrorCapture::HandleError(const QString& methodName, std::int32_t number,
                               const QString& description, const QString& source) {
    ErrorContext c;
    c.number = number;
    c.source = source;
    c.description = description;
    c.methodName = methodName;
    c.computer = QSysInfo::machineHostName();
    c.time = QDateTime::currentDateTime();
    c.version = versionText();
    ++count_;
    {
        // Closed before onError, which may read the file back.
        QFile file(errorFile());
        if (file.open(QIODevice::WriteOnly | QIODevice::Append))
            file.write(FormatError(c).toUtf8());
    }
    if (onError)
        onError(c);
}

ErrorContext ErrorCapture::contextOf(const QString& methodName, const std::exception* error) const {
    ErrorContext c;
    c.methodName = methodName;
    c.source = QStringLiteral("Tarnwick");
    c.number = errnum::InvalidCall;
    if (error == nullptr) {
        c.description = QStringLiteral("Unknown failure");
    } else if (const auto* rt = dynamic_cast<const RunTimeError*>(error)) {
        c.number = rt->number();
        c.description = QString::fromStdString(rt->description());
        c.source = QString::fromStdString(rt->source());
    } else if (dynamic_cast<const std::bad_alloc*>(error) != nullptr) {
        c.number = errnum::OutOfMemory;
        c.description = standardErrorText(errnum::OutOfMemory);
    } else {
        c.description = QString::fromUtf8(error->what());
    }
    return c;
}

void ErrorCapture::HandleException(const QString& methodName, const std::exception& error) {
    const ErrorContext c = contextOf(methodName, &error);
    HandleError(methodName, c.number, c.description, c.source);
}

QString ErrorCapture::StepModeText(const QString& errorText) {
    return QStringLiteral("Error: ") + errorText + QStringLiteral("\r\n") +
           QStringLiteral("Do you want to retry the operation in step mode?") +
           QStringLiteral("\r\n") +
           QStringLiteral("Click YES to retry, NO to move to the caller, CANCEL for no more stops");
}

StepAnswer ErrorCapture::StopOnError(const QString& methodName, const std::exception* error,
                                     int retries, bool outermost) {
    if (StopMode != kStoppedOnError || !askStepMode || retries >= kMaxStepRetries)
        return StepAnswer::Report;
    ErrorContext c = contextOf(methodName, error);
    c.computer = QSysInfo::machineHostName();
    c.time = QDateTime::currentDateTime();
    c.version = versionText();
    switch (askStepMode(StepModeText(FormatError(c)))) {
    case MsgResult::Yes:
        return StepAnswer::Retry;
    case MsgResult::No:
        // The outermost routine has no caller with a trap: its own trap reports.
        return outermost ? StepAnswer::Report : StepAnswer::ToCaller;
    default:
        StopMode = kNoStop;
        return StepAnswer::Report;
    }
}

} // namespace twk
