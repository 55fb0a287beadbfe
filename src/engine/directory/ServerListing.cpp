#include "directory/ServerListing.h"

#include "core/Engine.h"
#include "directory/TreeDiscovery.h"

#include <QEventLoop>
#include <QTimer>

namespace twk {

namespace {

/// Runs the event loop until the running search (if any) has been handled.
bool waitForSearch(Engine& engine, int timeoutMs) {
    if (!engine.directory.searchRunning)
        return true;
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (!engine.directory.searchRunning)
            loop.quit();
    });
    poll.start(5);
    QTimer::singleShot(timeoutMs, &loop, [&] { loop.exit(1); });
    return loop.exec() == 0;
}

bool placeholder(const QString& item) {
    return item == cascade::kTreeNotFound || item == cascade::kTreePlaceholder ||
           item == cascade::kServerNotFound || item == cascade::kVolumeNotFound;
}

} // namespace

bool listServers(Engine& engine, std::vector<ListedServer>& servers, QString& error,
                 int timeoutMs) {
    const QString timeoutText =
        QStringLiteral("the network scan did not finish within %1 seconds").arg(timeoutMs / 1000);
    MainView& v = engine.view;
    engine.StartContext = ReadNDSContext(engine);
    const bool contexts = StartContextDefined(engine);
    if (contexts) {
        GetServersInContext(engine);
    } else {
        GetTrees(engine);
        if (!v.cbTree.items.isEmpty() && !placeholder(v.cbTree.items.front()))
            GetServers(engine);
    }
    if (!waitForSearch(engine, timeoutMs)) {
        error = timeoutText;
        return false;
    }
    const QStringList trees = v.cbTree.items;
    for (int t = 0; t < trees.size(); ++t) {
        if (placeholder(trees[t]))
            continue;
        if (t > 0) { // the first tree's servers are in already
            v.cbTree.ListIndex = t;
            if (contexts)
                engine.StartContext = trees[t];
            GetServers(engine);
            if (!waitForSearch(engine, timeoutMs)) {
                error = timeoutText;
                return false;
            }
        }
        const QString tree = contexts ? treeOfSelection(trees[t]) : trees[t];
        const QStringList names = v.cbServer.items;
        for (int s = 0; s < names.size(); ++s) {
            if (placeholder(names[s]))
                continue;
            v.cbServer.ListIndex = s;
            GetVolumes(engine);
            if (!waitForSearch(engine, timeoutMs)) {
                error = timeoutText;
                return false;
            }
            ListedServer row{tree, names[s], fnOSType(engine, names[s]), {}};
            for (const QString& volume : v.cbVolume.items)
                if (!placeholder(volume))
                    row.volumes << volume;
            servers.push_back(row);
        }
    }
    return true;
}

QString serverListLine(const ListedServer& server) {
    return server.tree + u'\t' + server.server + u'\t' + server.osType + u'\t' +
           server.volumes.join(u',');
}

} // namespace twk
