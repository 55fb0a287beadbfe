#pragma once
// The registry layer of the program: a typed settings store with the hives the program
// uses, persisted as one file in the registry export format (RegistryFile.h).
//
// Every change is written to the file at once (atomically, mode 0600), unless a Batch is
// open, which defers the write to its end. Before a change, and before a read, the file
// is read again if another process changed it since this instance last read or wrote it,
// so two running instances keep each other's values.
//
// Reads never fail: they give the caller's default. Values reach callers as text.

#include "core/settings/RegistryTree.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

namespace twk {

/// One value of a key as Reg_GetAllKeys reports it.
struct RegValueText {
    QString name;
    QString text;
};

class Registry {
public:
    /// A store kept in `filePath`; a missing file is an empty store. An empty path gives
    /// a store that lives in memory only.
    explicit Registry(QString filePath = {});
    ~Registry();
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    // --- modRegistry: keys are paths with "\" separators, below the hive's root.

    /// Whether the key exists.
    bool RegKeyExist(Hive root, const QString& key) const;
    /// Whether the key holds a value of that name ("" is the default value), of any type.
    bool RegSZExist(Hive root, const QString& key, const QString& value) const;
    /// Creates the key level by level; true when it exists afterwards.
    bool RegCreateKey(Hive root, const QString& key);
    /// Writes raw data (texts as UTF-16LE with their nulls); the key must exist.
    bool RegSetValue(Hive root, const QString& key, const QString& value, RegType type,
                     const QByteArray& data);
    bool Reg_DeleteValue(Hive root, const QString& key, const QString& value);
    /// Deletes the key with all its subkeys.
    bool Reg_DeleteKey(Hive root, const QString& key);
    /// Names and texts (as Reg_GetValue gives them) of the key's values, in order;
    /// the default value is left out.
    QList<RegValueText> Reg_GetAllKeys(Hive root, const QString& key) const;
    /// Names of the key's direct subkeys, sorted blind to case.
    QStringList Reg_GetSubKeys(Hive root, const QString& key) const;
    /// The common read. Strings end at their first null; an expandable string reads as
    /// written; a DWORD gives its unsigned decimal text ("60"); a multi-string its lines
    /// joined by "#"; binary data its bytes as Latin-1 characters. A missing key or value,
    /// or any other type, gives `defaultValue`.
    QString Reg_GetValue(Hive root, const QString& key, const QString& value,
                         const QString& defaultValue = {}) const;
    /// The setters create the key first.
    bool Reg_SetString(Hive root, const QString& key, const QString& value, const QString& text);
    bool Reg_SetExpandSZ(Hive root, const QString& key, const QString& value, const QString& text);
    bool Reg_SetDWord(Hive root, const QString& key, const QString& value, quint32 number);
    /// `lines` are separated by CR LF; each becomes one entry of the multi-string.
    bool Reg_SetMultiSZ(Hive root, const QString& key, const QString& value, const QString& lines);

    /// Defers the writing of the file to the end of the outermost open batch.
    class Batch {
    public:
        explicit Batch(Registry& registry);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        Registry& registry_;
    };

    const QString& filePath() const { return filePath_; }
    /// Writes changes that are not on disk yet; true when nothing is left unwritten.
    bool flush();

private:
    struct DiskStamp;
    struct Outcome {
        bool ok = false;
        bool changed = false;
    };
    template <typename Operation> bool change(Operation&& operation);
    bool setValue(Hive root, const QString& key, const QString& value, RegType type,
                  const QByteArray& data, bool createKey);
    const RegistryTree& current() const;
    void reloadIfChangedOnDisk() const;
    bool save();

    QString filePath_;
    std::unique_ptr<RegistryTree> tree_; // refreshed by const reads, hence pointers
    std::unique_ptr<DiskStamp> stamp_;
    int batchDepth_ = 0;
    bool unsaved_ = false;
};

} // namespace twk
