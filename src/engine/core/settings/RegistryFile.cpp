#include "core/settings/RegistryFile.h"

#include <QStringDecoder>
#include <QtEndian>

#include <optional>

namespace twk {

namespace {

const QString kHeader = QStringLiteral("Windows Registry Editor Version 5.00");
const QString kOldHeader = QStringLiteral("REGEDIT4");
// Hex data lines are wrapped so that no line grows beyond 80 characters, as exports do.
constexpr qsizetype kHexLineLimit = 78;

struct HiveSpelling {
    Hive hive;
    const char* longName;
    const char* shortName;
};

constexpr HiveSpelling kHives[] = {
    {Hive::CurrentUser, "HKEY_CURRENT_USER", "HKCU"},
    {Hive::LocalMachine, "HKEY_LOCAL_MACHINE", "HKLM"},
    {Hive::ClassesRoot, "HKEY_CLASSES_ROOT", "HKCR"},
};

std::optional<Hive> hiveFromName(const QString& name) {
    for (const HiveSpelling& h : kHives)
        if (name.compare(QLatin1String(h.longName), Qt::CaseInsensitive) == 0 ||
            name.compare(QLatin1String(h.shortName), Qt::CaseInsensitive) == 0)
            return h.hive;
    return std::nullopt;
}

// ---------------------------------------------------------------- writing

QString registryEscaped(const QString& text) {
    QString out = text;
    out.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    out.replace(QLatin1Char('"'), QLatin1String("\\\""));
    return out;
}

/// A string value that the quoted form can carry unchanged: one terminating null and
/// nothing that would break the line. Anything else is written as hex(1).
std::optional<QString> quotableText(const RegValue& value) {
    if (value.type != RegType::String || value.data.size() < 2 || value.data.size() % 2 != 0)
        return std::nullopt;
    QString text = fromUtf16Bytes(value.data);
    if (!text.endsWith(QChar(0)))
        return std::nullopt;
    text.chop(1);
    if (text.contains(QChar(0)) || text.contains(QLatin1Char('\r')) ||
        text.contains(QLatin1Char('\n')) || !QStringView(text).isValidUtf16())
        return std::nullopt;
    return text;
}

QString hexByte(unsigned char b) {
    return QStringLiteral("%1").arg(b, 2, 16, QLatin1Char('0'));
}

void appendHexLines(QStringList& out, QString line, const QByteArray& bytes) {
    bool lineHasBytes = false;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const QString item =
            hexByte(static_cast<unsigned char>(bytes[i])) + (i + 1 < bytes.size() ? "," : "");
        if (lineHasBytes && line.size() + item.size() > kHexLineLimit) {
            out << line + QLatin1Char('\\');
            line = QStringLiteral("  ");
        }
        line += item;
        lineHasBytes = true;
    }
    out << line;
}

void appendValue(QStringList& out, const RegValue& value) {
    const QString name =
        value.name.isEmpty() ? QStringLiteral("@") : "\"" + registryEscaped(value.name) + "\"";
    if (const auto text = quotableText(value)) {
        out << name + "=\"" + registryEscaped(*text) + "\"";
        return;
    }
    if (value.type == RegType::DWord && value.data.size() == 4) {
        const quint32 number = qFromLittleEndian<quint32>(value.data.constData());
        out << name + QStringLiteral("=dword:%1").arg(number, 8, 16, QLatin1Char('0'));
        return;
    }
    const QString kind =
        value.type == RegType::Binary
            ? QStringLiteral("hex:")
            : QStringLiteral("hex(%1):").arg(static_cast<quint32>(value.type), 0, 16);
    appendHexLines(out, name + "=" + kind, value.data);
}

void appendKey(QStringList& out, const RegKey& key, const QString& path, bool isHiveRoot) {
    // A hive root is implied by its keys; it gets a section only to carry values.
    if (!isHiveRoot || !key.values.empty()) {
        out << "[" + path + "]";
        for (const RegValue& value : key.values)
            appendValue(out, value);
        out << QString();
    }
    for (const RegKey& sub : key.subkeys)
        appendKey(out, sub, path + "\\" + sub.name, false);
}

// ---------------------------------------------------------------- reading

QString decodeContent(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE"))
        return QStringDecoder(QStringDecoder::Utf16LE).decode(bytes.mid(2));
    if (bytes.startsWith("\xFE\xFF"))
        return QStringDecoder(QStringDecoder::Utf16BE).decode(bytes.mid(2));
    if (bytes.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(bytes.mid(3));
    // An export saved without its byte order mark still shows "W\0i\0n\0...".
    if (bytes.size() >= 2 && bytes[0] != 0 && bytes[1] == 0)
        return QStringDecoder(QStringDecoder::Utf16LE).decode(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

/// Reads a quoted text starting at `pos` (on the opening quote); `pos` ends behind
/// the closing quote. Only "\\" and "\"" are escapes; any other backslash stays.
std::optional<QString> readQuoted(const QString& line, qsizetype& pos) {
    QString out;
    ++pos;
    while (pos < line.size()) {
        const QChar c = line[pos++];
        if (c == QLatin1Char('"'))
            return out;
        if (c == QLatin1Char('\\') && pos < line.size() &&
            (line[pos] == QLatin1Char('\\') || line[pos] == QLatin1Char('"'))) {
            out += line[pos++];
            continue;
        }
        out += c;
    }
    return std::nullopt;
}

std::optional<QByteArray> hexBytes(const QString& list) {
    QByteArray bytes;
    const QStringList items = list.split(QLatin1Char(','));
    for (qsizetype i = 0; i < items.size(); ++i) {
        const QString item = items[i].trimmed();
        if (item.isEmpty() && i == items.size() - 1)
            break; // a trailing comma
        bool ok = false;
        const uint b = item.toUInt(&ok, 16);
        if (!ok || item.size() > 2 || b > 0xFF)
            return std::nullopt;
        bytes.append(static_cast<char>(b));
    }
    return bytes;
}

bool startsValueOrSection(const QString& trimmedLine) {
    return trimmedLine.startsWith(QLatin1Char('[')) || trimmedLine.startsWith(QLatin1Char('"')) ||
           trimmedLine.startsWith(QLatin1Char('@'));
}

class FileReader {
public:
    explicit FileReader(const QByteArray& content) {
        lines_ = decodeContent(content).split(QLatin1Char('\n'));
        for (QString& line : lines_)
            if (line.endsWith(QLatin1Char('\r')))
                line.chop(1);
    }

    RegistryTree read() {
        for (index_ = 0; index_ < lines_.size(); ++index_) {
            const QString line = lines_[index_].trimmed();
            if (line.isEmpty() || line.startsWith(QLatin1Char(';')))
                continue;
            if (line == kOldHeader)
                ansiStrings_ = true;
            else if (line.startsWith(QLatin1Char('[')))
                openSection(line);
            else if (current_ != nullptr &&
                     (line.startsWith(QLatin1Char('"')) || line.startsWith(QLatin1Char('@'))))
                readValue(line);
        }
        return std::move(tree_);
    }

private:
    void openSection(const QString& line) {
        current_ = nullptr;
        const qsizetype close = line.lastIndexOf(QLatin1Char(']'));
        if (close < 0)
            return;
        const QString path = line.mid(1, close - 1);
        if (path.startsWith(QLatin1Char('-'))) // a deletion entry of an import file
            return;
        const qsizetype cut = path.indexOf(QLatin1Char('\\'));
        const auto hive = hiveFromName(cut < 0 ? path : path.left(cut));
        if (!hive)
            return;
        current_ = &tree_.create(*hive, cut < 0 ? QString() : path.mid(cut + 1));
    }

    void readValue(const QString& line) {
        qsizetype pos = 0;
        QString name;
        if (line.startsWith(QLatin1Char('@'))) {
            pos = 1;
        } else {
            const auto quoted = readQuoted(line, pos);
            if (!quoted)
                return;
            name = *quoted;
        }
        while (pos < line.size() && line[pos].isSpace())
            ++pos;
        if (pos >= line.size() || line[pos] != QLatin1Char('='))
            return;
        std::optional<RegValue> value = readData(line.mid(pos + 1).trimmed());
        if (!value)
            return;
        value->name = name;
        if (RegValue* existing = current_->findValue(name))
            *existing = std::move(*value);
        else
            current_->values.push_back(std::move(*value));
    }

    std::optional<RegValue> readData(const QString& data) {
        if (data.startsWith(QLatin1Char('"'))) {
            qsizetype pos = 0;
            const auto text = readQuoted(data, pos);
            if (!text)
                return std::nullopt;
            return RegValue{{}, RegType::String, utf16Bytes(*text + QChar(0))};
        }
        if (data.startsWith(QLatin1String("dword:"), Qt::CaseInsensitive)) {
            const QString digits = data.mid(6).trimmed();
            bool ok = false;
            const quint32 number = digits.toUInt(&ok, 16);
            if (!ok || digits.size() > 8)
                return std::nullopt;
            QByteArray bytes(4, Qt::Uninitialized);
            qToLittleEndian<quint32>(number, bytes.data());
            return RegValue{{}, RegType::DWord, bytes};
        }
        if (data.startsWith(QLatin1String("hex"), Qt::CaseInsensitive))
            return readHex(data);
        return std::nullopt; // "-" deletes in an import file; anything else is not ours
    }

    std::optional<RegValue> readHex(QString data) {
        while (data.endsWith(QLatin1Char('\\'))) {
            data.chop(1);
            if (index_ + 1 >= lines_.size())
                return std::nullopt; // cut off in the middle of the value
            const QString next = lines_[index_ + 1].trimmed();
            if (next.isEmpty() || startsValueOrSection(next))
                return std::nullopt;
            data += next;
            ++index_;
        }
        const qsizetype colon = data.indexOf(QLatin1Char(':'));
        if (colon < 0)
            return std::nullopt;
        const QString kind = data.left(colon).trimmed().toLower();
        RegType type = RegType::Binary;
        if (kind != QLatin1String("hex")) {
            if (!kind.startsWith(QLatin1String("hex(")) || !kind.endsWith(QLatin1Char(')')))
                return std::nullopt;
            bool ok = false;
            type = static_cast<RegType>(kind.mid(4, kind.size() - 5).toUInt(&ok, 16));
            if (!ok)
                return std::nullopt;
        }
        std::optional<QByteArray> bytes = hexBytes(data.mid(colon + 1));
        if (!bytes)
            return std::nullopt;
        const bool textType = type == RegType::String || type == RegType::ExpandString ||
                              type == RegType::MultiString;
        if (ansiStrings_ && textType) // REGEDIT4 files store texts in the ANSI code page
            bytes = utf16Bytes(QString::fromLatin1(*bytes));
        return RegValue{{}, type, *bytes};
    }

    QStringList lines_;
    qsizetype index_ = 0;
    RegistryTree tree_;
    RegKey* current_ = nullptr;
    bool ansiStrings_ = false;
};

} // namespace

QByteArray writeRegistryFile(const RegistryTree& tree) {
    QStringList out{kHeader, QString()};
    for (const HiveSpelling& h : kHives)
        appendKey(out, tree.hiveRoot(h.hive), QLatin1String(h.longName), true);
    return out.join(QLatin1Char('\n')).toUtf8();
}

RegistryTree readRegistryFile(const QByteArray& content) {
    return FileReader(content).read();
}

} // namespace twk
