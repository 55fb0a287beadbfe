#pragma once
// What discovery finds, as a list: every tree (or start context), its servers with
// their platform, and each server's volumes. Runs the same routines as the main
// window, with an event loop of its own for the searches (for the command line).

#include <QString>
#include <QStringList>

#include <vector>

namespace twk {

class Engine;

struct ListedServer {
    QString tree;
    QString server;
    QString osType;
    QStringList volumes;
};

/// Discovers trees, servers and volumes. False, with `error` set, when a search did not
/// finish within `timeoutMs`.
bool listServers(Engine& engine, std::vector<ListedServer>& servers, QString& error,
                 int timeoutMs = 30000);

/// One line of the listing: tree, server, platform and the volumes joined by ",",
/// separated by tabs.
QString serverListLine(const ListedServer& server);

} // namespace twk
