#include "tools/ErrorCodes.h"

#include "core/AppPaths.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <memory>

namespace twk {

namespace {

bool isHexDigit(QChar c) {
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
           (c.toUpper() >= QLatin1Char('A') && c.toUpper() <= QLatin1Char('F'));
}

std::optional<std::int32_t> hexCode(const QString& digits) {
    if (digits.isEmpty() || digits.size() > 8)
        return std::nullopt;
    for (const QChar c : digits)
        if (!isHexDigit(c))
            return std::nullopt;
    bool ok = false;
    const quint32 value = digits.toUInt(&ok, 16);
    if (!ok)
        return std::nullopt;
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> decimalCode(const QString& text) {
    static const QRegularExpression kDecimal(QStringLiteral("^[+-]?[0-9]{1,10}$"));
    if (!kDecimal.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const qlonglong value = text.toLongLong(&ok);
    if (!ok || value < INT32_MIN || value > static_cast<qlonglong>(UINT32_MAX))
        return std::nullopt;
    return static_cast<std::int32_t>(static_cast<quint32>(value));
}

} // namespace

ErrorCodeTable ErrorCodeTable::parse(const QByteArray& bytes) {
    ErrorCodeTable table;
    std::map<std::int32_t, ErrorCodeEntry> byCode;
    for (const QByteArray& raw : bytes.split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QStringList parts = line.split(QRegularExpression(QStringLiteral("\\s+")));
        if (parts.size() < 3) {
            ++table.badLines_;
            continue;
        }
        const QString& codeText = parts[0];
        std::optional<std::int32_t> code;
        if (codeText.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive))
            code = hexCode(codeText.mid(2));
        else
            code = decimalCode(codeText);
        if (!code) {
            ++table.badLines_;
            continue;
        }
        ErrorCodeEntry e;
        e.code = *code;
        e.name = parts[1] == QStringLiteral("-") ? QString() : parts[1];
        // The text is the rest of the line after the name, as written.
        const auto nameAt = line.indexOf(parts[1], codeText.size());
        e.text = line.mid(nameAt + parts[1].size()).trimmed();
        byCode[e.code] = e; // a later line for the same code wins
    }
    for (auto& [code, entry] : byCode)
        table.entries_.push_back(std::move(entry));
    return table;
}

std::optional<ErrorCodeTable> ErrorCodeTable::load(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parse(file.readAll());
}

const ErrorCodeEntry* ErrorCodeTable::find(std::int32_t code) const {
    const auto it =
        std::lower_bound(entries_.begin(), entries_.end(), code,
                         [](const ErrorCodeEntry& e, std::int32_t c) { return e.code < c; });
    return it != entries_.end() && it->code == code ? &*it : nullptr;
}

QString errorCodeFile(const AppPaths& paths) {
    return paths.shareFolder + QStringLiteral("/data/") + kErrorCodeFileName;
}

const ErrorCodeTable* errorCodeTable(const AppPaths& paths) {
    static std::map<QString, std::unique_ptr<ErrorCodeTable>> loaded;
    const QString path = errorCodeFile(paths);
    if (const auto it = loaded.find(path); it != loaded.end())
        return it->second.get();
    std::optional<ErrorCodeTable> table = ErrorCodeTable::load(path);
    if (!table)
        return nullptr;
    auto& slot = loaded[path];
    slot = std::make_unique<ErrorCodeTable>(std::move(*table));
    return slot.get();
}

QString errorTableMissingText() {
    return QStringLiteral("File <") + kErrorCodeFileName + QStringLiteral("> not available.   ");
}

QString NWstrerror(const ErrorCodeTable& table, std::int32_t code) {
    const ErrorCodeEntry* e = table.find(code);
    if (e == nullptr)
        return QStringLiteral("Unknown error code.");
    return e->name.isEmpty() ? e->text : e->name + QStringLiteral(": ") + e->text;
}

std::optional<std::int32_t> parseErrorCode(const QString& typed) {
    const QString text = typed.trimmed();
    if (text.startsWith(QStringLiteral("&h"), Qt::CaseInsensitive) ||
        text.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive))
        return hexCode(text.mid(2));
    if (text.startsWith(QLatin1Char('h'), Qt::CaseInsensitive))
        return hexCode(text.mid(1));
    if (text.size() > 1 && text.endsWith(QLatin1Char('h'), Qt::CaseInsensitive))
        return hexCode(text.left(text.size() - 1));
    return decimalCode(text);
}

QString errorCodeHex(std::int32_t code) {
    return QString::number(static_cast<quint32>(code), 16).toUpper();
}

QString errorCodeInMessage(const QString& message) {
    static const QRegularExpression kAfterColon(QStringLiteral("error: (-[0-9]+)"),
                                                QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression kAfterHash(QStringLiteral("error #"),
                                               QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression kCode(QStringLiteral("^ *(-?(0x[0-9a-f]+|[0-9]+))"),
                                          QRegularExpression::CaseInsensitiveOption);
    if (message.contains(QStringLiteral("error: -"), Qt::CaseInsensitive)) {
        const auto m = kAfterColon.match(message);
        return m.hasMatch() ? m.captured(1) : QString();
    }
    const auto hash = kAfterHash.match(message);
    if (!hash.hasMatch())
        return {};
    const auto m = kCode.match(message.mid(hash.capturedEnd()));
    return m.hasMatch() ? m.captured(1) : QString();
}

QStringList errorCodeReport(const ErrorCodeTable& table, std::int32_t code) {
    return {QStringLiteral("decimal:      ") + QString::number(code),
            QStringLiteral("hexadecimal:  0x") + errorCodeHex(code),
            QStringLiteral("text:         ") + NWstrerror(table, code)};
}

} // namespace twk
