#include "core/settings/Registry.h"

#include "core/settings/AtomicWrite.h"
#include "core/settings/RegistryFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sys/stat.h>
#include <unistd.h>

namespace twk {

namespace {

constexpr unsigned kSettingsFileMode = 0600;

QString textOf(const RegValue& value, const QString& defaultValue) {
    switch (value.type) {
    case RegType::String:
    case RegType::ExpandString: {
        const QString text = fromUtf16Bytes(value.data);
        const qsizetype end = text.indexOf(QChar(0));
        return end < 0 ? text : text.left(end);
    }
    case RegType::DWord:
        if (value.data.size() != 4)
            return defaultValue;
        return QString::number(qFromLittleEndian<quint32>(value.data.constData()));
    case RegType::MultiString: {
        QString text = fromUtf16Bytes(value.data);
        // The last entry's null and the list's closing null separate nothing.
        for (int i = 0; i < 2 && text.endsWith(QChar(0)); ++i)
            text.chop(1);
        return text.replace(QChar(0), QLatin1Char('#'));
    }
    case RegType::Binary:
        return QString::fromLatin1(value.data);
    }
    return defaultValue;
}

QByteArray terminatedText(const QString& text, int nulls) {
    return utf16Bytes(text + QString(nulls, QChar(0)));
}

} // namespace

/// What identifies one version of the file: every write renames a new file into place,
/// so the inode changes with it; size and time catch writers that don't rename.
struct Registry::DiskStamp {
    bool exists = false;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    timespec modified{};

    static DiskStamp of(const QString& path) {
        DiskStamp stamp;
        struct stat st {};
        if (::stat(QFile::encodeName(path).constData(), &st) != 0)
            return stamp;
        stamp.exists = true;
        stamp.device = st.st_dev;
        stamp.inode = st.st_ino;
        stamp.size = st.st_size;
        stamp.modified = st.st_mtim;
        return stamp;
    }

    bool operator==(const DiskStamp& o) const {
        return exists == o.exists && device == o.device && inode == o.inode && size == o.size &&
               modified.tv_sec == o.modified.tv_sec && modified.tv_nsec == o.modified.tv_nsec;
    }
};

Registry::Registry(QString filePath)
    : filePath_(std::move(filePath)), tree_(std::make_unique<RegistryTree>()),
      stamp_(std::make_unique<DiskStamp>()) {
    reloadIfChangedOnDisk();
}

Registry::~Registry() {
    flush();
}

void Registry::reloadIfChangedOnDisk() const {
    // Unwritten changes of an open batch must not be replaced by the file.
    if (filePath_.isEmpty() || unsaved_)
        return;
    const DiskStamp now = DiskStamp::of(filePath_);
    if (now == *stamp_)
        return;
    if (!now.exists) {
        *tree_ = RegistryTree();
        *stamp_ = now;
        return;
    }
    QFile file(filePath_);
    if (!file.open(QIODevice::ReadOnly))
        return; // keep what we have; the next access tries again
    *tree_ = readRegistryFile(file.readAll());
    *stamp_ = now;
}

const RegistryTree& Registry::current() const {
    reloadIfChangedOnDisk();
    return *tree_;
}

template <typename Operation> bool Registry::change(Operation&& operation) {
    reloadIfChangedOnDisk();
    const Outcome outcome = operation(*tree_);
    if (outcome.changed) {
        unsaved_ = true;
        if (batchDepth_ == 0)
            save();
    }
    return outcome.ok;
}

bool Registry::save() {
    if (filePath_.isEmpty()) {
        unsaved_ = false;
        return true;
    }
    QDir().mkpath(QFileInfo(filePath_).absolutePath());
    settings::AtomicWriteOptions options;
    // Per process, so that two instances writing at once never share a temporary file.
    options.tempName = QFileInfo(filePath_).fileName() + "." + QString::number(::getpid()) + ".tmp";
    options.mode = kSettingsFileMode;
    options.forceMode = true;
    if (!settings::writeFileAtomically(filePath_, writeRegistryFile(*tree_), options))
        return false; // stays unsaved; the next change or flush tries again
    unsaved_ = false;
    *stamp_ = DiskStamp::of(filePath_);
    return true;
}

bool Registry::flush() {
    return !unsaved_ || save();
}

Registry::Batch::Batch(Registry& registry) : registry_(registry) {
    ++registry_.batchDepth_;
}

Registry::Batch::~Batch() {
    if (--registry_.batchDepth_ == 0)
        registry_.flush();
}

// ---------------------------------------------------------------- modRegistry

bool Registry::RegKeyExist(Hive root, const QString& key) const {
    return current().find(root, key) != nullptr;
}

bool Registry::RegSZExist(Hive root, const QString& key, const QString& value) const {
    const RegKey* k = current().find(root, key);
    return k != nullptr && k->findValue(value) != nullptr;
}

bool Registry::RegCreateKey(Hive root, const QString& key) {
    return change([&](RegistryTree& tree) {
        bool created = false;
        tree.create(root, key, &created);
        return Outcome{true, created};
    });
}

bool Registry::setValue(Hive root, const QString& key, const QString& value, RegType type,
                        const QByteArray& data, bool createKey) {
    return change([&](RegistryTree& tree) {
        bool created = false;
        RegKey* k = createKey ? &tree.create(root, key, &created) : tree.find(root, key);
        if (k == nullptr)
            return Outcome{false, false};
        if (RegValue* existing = k->findValue(value)) {
            if (existing->type == type && existing->data == data)
                return Outcome{true, created};
            existing->type = type;
            existing->data = data;
        } else {
            k->values.push_back(RegValue{value, type, data});
        }
        return Outcome{true, true};
    });
}

bool Registry::RegSetValue(Hive root, const QString& key, const QString& value, RegType type,
                           const QByteArray& data) {
    return setValue(root, key, value, type, data, false);
}

bool Registry::Reg_DeleteValue(Hive root, const QString& key, const QString& value) {
    return change([&](RegistryTree& tree) {
        RegKey* k = tree.find(root, key);
        if (k == nullptr)
            return Outcome{false, false};
        const RegValue* found = k->findValue(value);
        if (found == nullptr)
            return Outcome{false, false};
        k->values.erase(k->values.begin() + (found - k->values.data()));
        return Outcome{true, true};
    });
}

bool Registry::Reg_DeleteKey(Hive root, const QString& key) {
    return change([&](RegistryTree& tree) {
        const bool removed = tree.remove(root, key);
        return Outcome{removed, removed};
    });
}

QList<RegValueText> Registry::Reg_GetAllKeys(Hive root, const QString& key) const {
    QList<RegValueText> result;
    if (const RegKey* k = current().find(root, key))
        for (const RegValue& v : k->values)
            if (!v.name.isEmpty())
                result.append({v.name, textOf(v, QString())});
    return result;
}

QStringList Registry::Reg_GetSubKeys(Hive root, const QString& key) const {
    QStringList names;
    if (const RegKey* k = current().find(root, key))
        for (const RegKey& sub : k->subkeys)
            names.append(sub.name);
    return names;
}

QString Registry::Reg_GetValue(Hive root, const QString& key, const QString& value,
                               const QString& defaultValue) const {
    const RegKey* k = current().find(root, key);
    const RegValue* v = k != nullptr ? k->findValue(value) : nullptr;
    return v != nullptr ? textOf(*v, defaultValue) : defaultValue;
}

bool Registry::Reg_SetString(Hive root, const QString& key, const QString& value,
                             const QString& text) {
    return setValue(root, key, value, RegType::String, terminatedText(text, 1), true);
}

bool Registry::Reg_SetExpandSZ(Hive root, const QString& key, const QString& value,
                               const QString& text) {
    return setValue(root, key, value, RegType::ExpandString, terminatedText(text, 1), true);
}

bool Registry::Reg_SetDWord(Hive root, const QString& key, const QString& value, quint32 number) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToLittleEndian<quint32>(number, bytes.data());
    return setValue(root, key, value, RegType::DWord, bytes, true);
}

bool Registry::Reg_SetMultiSZ(Hive root, const QString& key, const QString& value,
                              const QString& lines) {
    QString entries = lines;
    entries.replace(QLatin1String("\r\n"), QString(QChar(0)));
    return setValue(root, key, value, RegType::MultiString, terminatedText(entries, 2), true);
}

} // namespace twk
