#include "core/settings/TwkIniHead.h"

namespace twk {

QStringList twkIniBanner() {
    const QString dashes(81, QLatin1Char('-'));
    return {
        dashes,
        " " + kTreeContextV2Marker,
        dashes,
        QString(),
        QStringLiteral("During the startup of Tarnwick the entire tree is scanned started at "
                       "[Root] to find all"),
        QStringLiteral("servers. In a large tree this scan takes a long time. The key "
                       "TreeContext in the section"),
        QStringLiteral("below restricts the scan to start contexts: only the servers in and "
                       "below a start context"),
        QStringLiteral("are searched. With several start contexts the tree list offers each "
                       "of them to choose from."),
        QStringLiteral("Leave the value empty to scan the entire tree."),
        QString(),
        QStringLiteral("Syntax:"),
        QStringLiteral("   TreeContext=NDS:\\\\TREE\\O[\\OU...],[start context 2],"
                       "[start context n]"),
        QString(),
        QStringLiteral("   NDS:\\\\   every start context begins with it"),
        QStringLiteral("   TREE     the name of the NDS tree"),
        QStringLiteral("   O        the organization"),
        QStringLiteral("   OU       organizational units below it, optional, separated by \\"),
        QStringLiteral("   ,        separates further start contexts, each written in full"),
        QString(),
        QStringLiteral("Examples:"),
        QStringLiteral("   TreeContext=NDS:\\\\ACME_TREE\\ACME\\SALES"),
        QStringLiteral("   TreeContext=NDS:\\\\ACME_TREE\\ACME\\SALES,"
                       "NDS:\\\\ACME_TREE\\ACME\\BERLIN\\SUPPORT"),
        QString(),
    };
}

QStringList twkIniHead(const QString& treeContext) {
    QStringList lines = twkIniBanner();
    lines << kTreeContextSection << kTreeContextKey + "=" + treeContext;
    return lines;
}

} // namespace twk
