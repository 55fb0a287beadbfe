#pragma once
// The in-memory tree of the settings store: hives, keys and raw typed values.
// Names of keys and values are matched blind to case and keep the case of their
// creation, as the registry does.

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace twk {

enum class Hive { CurrentUser, LocalMachine, ClassesRoot };
/// The hive of the user's own settings, where most of them live.
inline constexpr Hive kUser = Hive::CurrentUser;

/// Value types, numbered as the registry numbers them. A value read from a file may
/// carry any other number; it is kept and written back unchanged.
enum class RegType : quint32 {
    String = 1,
    ExpandString = 2,
    Binary = 3,
    DWord = 4,
    MultiString = 7,
};

/// A value as the registry holds it: texts are UTF-16LE with their terminating nulls.
struct RegValue {
    QString name; ///< empty for the default value
    RegType type = RegType::String;
    QByteArray data;
};

struct RegKey {
    QString name;
    std::vector<RegValue> values; ///< in the order of creation
    std::vector<RegKey> subkeys;  ///< sorted blind to case

    RegValue* findValue(const QString& valueName);
    const RegValue* findValue(const QString& valueName) const;
    RegKey* findSubkey(const QString& keyName);
    const RegKey* findSubkey(const QString& keyName) const;
    /// The subkey of that name, created in sorted place when missing.
    RegKey& subkey(const QString& keyName);
};

/// The parts of a key path; empty parts (a leading or trailing "\") are ignored.
QStringList splitKeyPath(const QString& keyPath);

class RegistryTree {
public:
    RegKey& hiveRoot(Hive hive) { return hives_[static_cast<size_t>(hive)]; }
    const RegKey& hiveRoot(Hive hive) const { return hives_[static_cast<size_t>(hive)]; }

    RegKey* find(Hive hive, const QString& keyPath);
    const RegKey* find(Hive hive, const QString& keyPath) const;
    /// Creates the key level by level; returns it, and tells whether anything was new.
    RegKey& create(Hive hive, const QString& keyPath, bool* created = nullptr);
    /// Removes the key with all its subkeys. A hive root cannot be removed.
    bool remove(Hive hive, const QString& keyPath);

private:
    std::array<RegKey, 3> hives_;
};

/// UTF-16LE bytes of a text, without a terminator.
QByteArray utf16Bytes(const QString& text);
/// The text of UTF-16LE bytes (an odd last byte is dropped), nulls included.
QString fromUtf16Bytes(const QByteArray& bytes);

} // namespace twk
