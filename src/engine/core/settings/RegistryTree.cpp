#include "core/settings/RegistryTree.h"
#include "core/Text.h"

#include <QtEndian>

#include <algorithm>

namespace twk {

RegValue* RegKey::findValue(const QString& valueName) {
    return const_cast<RegValue*>(std::as_const(*this).findValue(valueName));
}

const RegValue* RegKey::findValue(const QString& valueName) const {
    for (const RegValue& v : values)
        if (text::sameName(v.name, valueName))
            return &v;
    return nullptr;
}

RegKey* RegKey::findSubkey(const QString& keyName) {
    return const_cast<RegKey*>(std::as_const(*this).findSubkey(keyName));
}

const RegKey* RegKey::findSubkey(const QString& keyName) const {
    for (const RegKey& k : subkeys)
        if (text::sameName(k.name, keyName))
            return &k;
    return nullptr;
}

RegKey& RegKey::subkey(const QString& keyName) {
    if (RegKey* existing = findSubkey(keyName))
        return *existing;
    const auto place = std::find_if(subkeys.begin(), subkeys.end(), [&keyName](const RegKey& k) {
        return k.name.compare(keyName, Qt::CaseInsensitive) > 0;
    });
    RegKey fresh;
    fresh.name = keyName;
    return *subkeys.insert(place, std::move(fresh));
}

QStringList splitKeyPath(const QString& keyPath) {
    return keyPath.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
}

RegKey* RegistryTree::find(Hive hive, const QString& keyPath) {
    return const_cast<RegKey*>(std::as_const(*this).find(hive, keyPath));
}

const RegKey* RegistryTree::find(Hive hive, const QString& keyPath) const {
    const RegKey* key = &hiveRoot(hive);
    for (const QString& part : splitKeyPath(keyPath)) {
        key = key->findSubkey(part);
        if (key == nullptr)
            return nullptr;
    }
    return key;
}

RegKey& RegistryTree::create(Hive hive, const QString& keyPath, bool* created) {
    RegKey* key = &hiveRoot(hive);
    bool anyNew = false;
    for (const QString& part : splitKeyPath(keyPath)) {
        anyNew = anyNew || key->findSubkey(part) == nullptr;
        key = &key->subkey(part);
    }
    if (created != nullptr)
        *created = anyNew;
    return *key;
}

bool RegistryTree::remove(Hive hive, const QString& keyPath) {
    QStringList parts = splitKeyPath(keyPath);
    if (parts.isEmpty())
        return false;
    const QString last = parts.takeLast();
    RegKey* parent = find(hive, parts.join(QLatin1Char('\\')));
    if (parent == nullptr)
        return false;
    const auto it = std::find_if(parent->subkeys.begin(), parent->subkeys.end(),
                                 [&last](const RegKey& k) { return text::sameName(k.name, last); });
    if (it == parent->subkeys.end())
        return false;
    parent->subkeys.erase(it);
    return true;
}

QByteArray utf16Bytes(const QString& text) {
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        qToLittleEndian<quint16>(text.at(i).unicode(), bytes.data() + 2 * i);
    return bytes;
}

QString fromUtf16Bytes(const QByteArray& bytes) {
    QString text(bytes.size() / 2, Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(qFromLittleEndian<quint16>(bytes.constData() + 2 * i));
    return text;
}

} // namespace twk
