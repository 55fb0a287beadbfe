#pragma once
// The argument shape of the commands that read one file: options with a value, given
// in any order around the file.

#include <QMap>
#include <QString>
#include <QStringList>

namespace twk::cli {

struct OptionsAndFile {
    QMap<QString, QString> values; ///< option ("--kind") to its value, as given
    QString file;
    const char* problem = nullptr; ///< set when the arguments are not of that shape
};

/// Reads `args` as options of `valueOptions`, each followed by its value, and one file.
OptionsAndFile parseOptionsAndFile(const QStringList& args, const QStringList& valueOptions);

} // namespace twk::cli
