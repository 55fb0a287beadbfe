#include "directory/NetworkDescription.h"
#include "core/Text.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <functional>
#include <map>

namespace twk {

namespace {

const QString kRoot = QStringLiteral("[Root]");

struct StateName {
    int code;
    const char* name;
};
constexpr std::array<StateName, 19> kStateNames{{
    {replicastate::BeginAdd, "Begin Add"},
    {replicastate::CrtStateOne, "CRT State one"},
    {replicastate::CrtStateZero, "CRT State zero"},
    {replicastate::Dead, "Dead"},
    {replicastate::Dying, "Dying"},
    {replicastate::Federated, "Federated"},
    {replicastate::JoinStateOne, "Join State one"},
    {replicastate::JoinStateTwo, "Join State two"},
    {replicastate::JoinStateZero, "Join State zero"},
    {replicastate::Locked, "Locked"},
    {replicastate::MasterDone, "Master Done"},
    {replicastate::MasterStart, "Master Start"},
    {replicastate::MoveStateOne, "Move state one"},
    {replicastate::MoveStateZero, "Move state zero"},
    {replicastate::New, "New"},
    {replicastate::On, "On"},
    {replicastate::SplitStateOne, "Split state one"},
    {replicastate::SplitStateZero, "Split state zero"},
    {replicastate::TransitionToOn, "Transition to On"},
}};
constexpr std::array<const char*, 4> kTypeNames{"Master", "Read/Write", "Read Only", "SubRef"};

std::optional<bool> parseSwitch(const QString& value) {
    const QString v = value.toLower();
    if (v == u"yes" || v == u"true" || v == u"on" || v == u"1")
        return true;
    if (v == u"no" || v == u"false" || v == u"off" || v == u"0")
        return false;
    return std::nullopt;
}

std::optional<int> parseNumber(const QString& value) {
    bool ok = false;
    const int n = value.toInt(&ok, 0);
    return ok ? std::optional<int>(n) : std::nullopt;
}

/// The text of a line without its comment and outer whitespace.
QString withoutComment(const QString& line) {
    const QString trimmed = line.trimmed();
    if (trimmed.startsWith(u'#') || trimmed.startsWith(u';'))
        return QString();
    const qsizetype comment = trimmed.indexOf(QStringLiteral(" ;"));
    return comment < 0 ? trimmed : trimmed.left(comment).trimmed();
}

enum class Section { None, Tree, Server, User, Scenario, Unknown };

class Parser {
public:
    NetworkDescription result;

    void line(int number, const QString& raw) {
        number_ = number;
        const QString text = withoutComment(raw);
        if (text.isEmpty())
            return;
        if (text.startsWith(u'[')) {
            header(text);
            return;
        }
        const qsizetype eq = text.indexOf(u'=');
        if (eq <= 0) {
            problem(QStringLiteral("expected \"key = value\": ") + text);
            return;
        }
        const QString key = text.left(eq).trimmed().toLower();
        const QString value = text.mid(eq + 1).trimmed();
        switch (section_) {
        case Section::None:
            problem(QStringLiteral("\"%1\" stands outside of a section").arg(key));
            break;
        case Section::Unknown:
            break; // the section header was reported already
        case Section::Tree:
            treeKey(key, value);
            break;
        case Section::Server:
            serverKey(key, value);
            break;
        case Section::User:
            userKey(key, value);
            break;
        case Section::Scenario:
            scenarioKey(key, value);
            break;
        }
    }

    void finish() {
        for (const auto& [server, line] : pendingScenarios_) {
            bool found = false;
            for (auto& s : result.servers)
                found = found || text::sameName(s.name, server);
            if (!found)
                result.problems << QStringLiteral("line %1: scenario for the unknown server \"%2\"")
                                       .arg(line)
                                       .arg(server);
        }
        for (const auto& s : result.servers) {
            if (s.tree.isEmpty())
                result.problems << QStringLiteral("line %1: server \"%2\" names no tree")
                                       .arg(s.line)
                                       .arg(s.name);
            else if (result.tree(s.tree) == nullptr)
                result.problems << QStringLiteral(
                                       "line %1: server \"%2\" is in the unknown tree \"%3\"")
                                       .arg(s.line)
                                       .arg(s.name, s.tree);
        }
    }

private:
    void problem(const QString& text) {
        result.problems << QStringLiteral("line %1: ").arg(number_) + text;
    }

    void header(const QString& text) {
        static const QRegularExpression pattern(
            QStringLiteral("^\\[\\s*(\\w+)\\s+([^\\]\\s]+)\\s*\\]$"));
        const auto match = pattern.match(text);
        section_ = Section::Unknown;
        if (!match.hasMatch()) {
            problem(QStringLiteral("bad section header: ") + text);
            return;
        }
        const QString kind = match.captured(1).toLower();
        const QString name = match.captured(2);
        if (kind == u"tree") {
            if (result.tree(name) != nullptr) {
                problem(QStringLiteral("tree \"%1\" is described twice").arg(name));
                return;
            }
            result.trees.push_back(TreeEntry{name, false, {}, {}});
            section_ = Section::Tree;
        } else if (kind == u"server") {
            if (result.server(name) != nullptr) {
                problem(QStringLiteral("server \"%1\" is described twice").arg(name));
                return;
            }
            ServerEntry server;
            server.name = name;
            server.line = number_;
            result.servers.push_back(server);
            section_ = Section::Server;
        } else if (kind == u"user") {
            result.users.push_back(UserEntry{name, {}, {}, {}});
            section_ = Section::User;
        } else if (kind == u"scenario") {
            scenarioOf_ = name;
            pendingScenarios_.push_back({name, number_});
            section_ = Section::Scenario;
        } else {
            problem(QStringLiteral("unknown section \"%1\"").arg(kind));
        }
    }

    bool setSwitch(bool& target, const QString& key, const QString& value) {
        const auto on = parseSwitch(value);
        if (!on) {
            problem(QStringLiteral("%1 must be yes or no, not \"%2\"").arg(key, value));
            return false;
        }
        target = *on;
        return true;
    }

    bool setNumber(int& target, const QString& key, const QString& value, int min = 0) {
        const auto n = parseNumber(value);
        if (!n || *n < min) {
            problem(QStringLiteral("%1 must be a number from %2 on, not \"%3\"")
                        .arg(key)
                        .arg(min)
                        .arg(value));
            return false;
        }
        target = *n;
        return true;
    }

    void treeKey(const QString& key, const QString& value) {
        TreeEntry& tree = result.trees.back();
        if (key == u"logged-in")
            setSwitch(tree.loggedIn, key, value);
        else if (key == u"user")
            tree.user = value;
        else if (key == u"container")
            tree.containers << parseContext(value).join(u'\\');
        else
            problem(QStringLiteral("unknown key \"%1\" in a tree").arg(key));
    }

    void serverKey(const QString& key, const QString& value) {
        ServerEntry& server = result.servers.back();
        if (key == u"tree")
            server.tree = value;
        else if (key == u"context")
            server.context = parseContext(value);
        else if (key == u"version")
            server.version = value;
        else if (key == u"volumes") {
            server.volumes.clear();
            for (const QString& v : value.split(u',', Qt::SkipEmptyParts))
                if (!v.trimmed().isEmpty())
                    server.volumes << v.trimmed();
        } else if (key == u"address")
            server.address = value;
        else if (key == u"connected")
            setSwitch(server.connected, key, value);
        else if (key == u"login")
            setSwitch(server.login, key, value);
        else if (key == u"authentication")
            authentication(server, value);
        else if (key == u"replica")
            replica(server, value);
        else if (key == u"deny")
            server.denied << value;
        else
            problem(QStringLiteral("unknown key \"%1\" in a server").arg(key));
    }

    void authentication(ServerEntry& server, const QString& value) {
        const QString v = value.toLower();
        if (v == u"none")
            server.authentication = 0;
        else if (v == u"bindery")
            server.authentication = 1;
        else if (v == u"directory")
            server.authentication = 2;
        else
            setNumber(server.authentication, QStringLiteral("authentication"), value);
    }

    void replica(ServerEntry& server, const QString& value) {
        const QStringList fields = value.split(u'|');
        if (fields.size() != 4) {
            problem(QStringLiteral("a replica is \"partition | type | state | last sync\": ") +
                    value);
            return;
        }
        ReplicaInfo r;
        const QStringList partition = parseContext(fields[0].trimmed());
        r.PartitionFullName = partition.isEmpty() ? kRoot : partition.join(u'\\');
        r.PartitionShortName = partition.isEmpty() ? kRoot : partition.last();
        r.ReplicaType = replicaTypeOf(fields[1].trimmed());
        r.ReplicaState = replicaStateOf(fields[2].trimmed());
        r.LastSync = fields[3].trimmed();
        if (r.ReplicaType < 0) {
            problem(QStringLiteral("unknown replica type \"%1\"").arg(fields[1].trimmed()));
            return;
        }
        if (r.ReplicaState < 0) {
            problem(QStringLiteral("unknown replica state \"%1\"").arg(fields[2].trimmed()));
            return;
        }
        server.replicas.push_back(r);
    }

    void userKey(const QString& key, const QString& value) {
        UserEntry& user = result.users.back();
        if (key == u"tree")
            user.tree = value;
        else if (key == u"context")
            user.context = parseContext(value);
        else if (key == u"password")
            user.password = value;
        else
            problem(QStringLiteral("unknown key \"%1\" in a user").arg(key));
    }

    void scenarioKey(const QString& key, const QString& value) {
        ServerEntry* server = nullptr;
        for (auto& s : result.servers)
            if (text::sameName(s.name, scenarioOf_))
                server = &s;
        ServerScenario ignored;
        ServerScenario& sc = server != nullptr ? server->scenario : ignored;
        using Setter = std::function<void()>;
        const std::map<QString, Setter> setters{
            {QStringLiteral("reachable"),
             [&] {
                 setSwitch(sc.reachable, key, value);
             }},
            {QStringLiteral("disconnected"),
             [&] {
                 setSwitch(sc.disconnected, key, value);
             }},
            {QStringLiteral("console-rights"),
             [&] {
                 setSwitch(sc.consoleRights, key, value);
             }},
            {QStringLiteral("dsrepair-start-ms"),
             [&] {
                 setNumber(sc.dsrepairStartMs, key, value);
             }},
            {QStringLiteral("dsrepair-run-ms"),
             [&] {
                 setNumber(sc.dsrepairRunMs, key, value);
             }},
            {QStringLiteral("dsrepair-keeps-log"),
             [&] {
                 setSwitch(sc.dsrepairKeepsLog, key, value);
             }},
            {QStringLiteral("dsrepair-unloads"),
             [&] {
                 setSwitch(sc.dsrepairUnloads, key, value);
             }},
            {QStringLiteral("ds-version"),
             [&] {
                 sc.dsVersion = value;
             }},
            {QStringLiteral("time-in-sync"),
             [&] {
                 setSwitch(sc.timeInSync, key, value);
             }},
            {QStringLiteral("time-offset"),
             [&] {
                 setNumber(sc.timeOffsetSeconds, key, value, -86400);
             }},
            {QStringLiteral("dsrepair-errors"),
             [&] {
                 setNumber(sc.dsrepairErrors, key, value);
             }},
            {QStringLiteral("replica-sync-age-minutes"),
             [&] {
                 setNumber(sc.replicaSyncAgeMinutes, key, value);
             }},
            {QStringLiteral("date-style"),
             [&] {
                 if (text::sameName(value, QStringLiteral("US")) ||
                     text::sameName(value, QStringLiteral("DE")))
                     sc.dateStyle = value.toUpper();
                 else
                     problem(QStringLiteral("date-style is US or DE, not \"%1\"").arg(value));
             }},
            {QStringLiteral("obituaries"),
             [&] {
                 setNumber(sc.obituaries, key, value);
             }},
            {QStringLiteral("trace-interval-ms"),
             [&] {
                 setNumber(sc.traceIntervalMs, key, value, 10);
             }},
            {QStringLiteral("sync-errors"),
             [&] {
                 setNumber(sc.syncErrors, key, value);
             }},
            {QStringLiteral("ttf-stuck"),
             [&] {
                 setSwitch(sc.ttfStuck, key, value);
             }},
            {QStringLiteral("trace-keeps-file"),
             [&] {
                 setSwitch(sc.traceKeepsFile, key, value);
             }},
            {QStringLiteral("config-run-ms"),
             [&] {
                 setNumber(sc.configRunMs, key, value);
             }},
            {QStringLiteral("connection-drops"),
             [&] {
                 setNumber(sc.connectionDrops, key, value);
             }},
            {QStringLiteral("vanish-after-ms"),
             [&] {
                 setNumber(sc.vanishAfterMs, key, value);
             }},
            {QStringLiteral("year-digits"),
             [&] {
                 if (value == QStringLiteral("2") || value == QStringLiteral("4"))
                     sc.yearDigits = value.toInt();
                 else
                     problem(QStringLiteral("year-digits is 2 or 4, not \"%1\"").arg(value));
             }},
        };
        const auto it = setters.find(key);
        if (it == setters.end())
            problem(QStringLiteral("unknown key \"%1\" in a scenario").arg(key));
        else
            it->second();
    }

    int number_ = 0;
    Section section_ = Section::None;
    QString scenarioOf_;
    std::vector<std::pair<QString, int>> pendingScenarios_;
};

} // namespace

const TreeEntry* NetworkDescription::tree(const QString& name) const {
    for (const auto& t : trees)
        if (text::sameName(t.name, name))
            return &t;
    return nullptr;
}

TreeEntry* NetworkDescription::tree(const QString& name) {
    return const_cast<TreeEntry*>(std::as_const(*this).tree(name));
}

const ServerEntry* NetworkDescription::server(const QString& name) const {
    for (const auto& s : servers)
        if (text::sameName(s.name, name))
            return &s;
    return nullptr;
}

const ServerEntry* NetworkDescription::serverByFullName(const QString& fullName) const {
    for (const auto& s : servers)
        if (text::sameName(serverFullName(s), fullName))
            return &s;
    return nullptr;
}

QString ndsPath(const QString& tree, const QStringList& containers, const QString& name) {
    QString path = kNdsPrefix + tree;
    for (const QString& c : containers)
        path += u'\\' + c;
    if (!name.isEmpty())
        path += u'\\' + name;
    return path;
}

bool splitNdsPath(const QString& path, QString& tree, QStringList& components) {
    if (!path.startsWith(kNdsPrefix, Qt::CaseInsensitive))
        return false;
    QStringList parts = path.mid(kNdsPrefix.size()).split(u'\\', Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return false;
    tree = parts.takeFirst();
    components.clear();
    for (const QString& p : parts)
        if (!text::sameName(p, kRoot))
            components << p;
    return true;
}

QString serverFullName(const ServerEntry& server) {
    return ndsPath(server.tree, server.context, server.name);
}

QStringList parseContext(const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty() || text::sameName(t, kRoot))
        return {};
    QStringList parts;
    if (t.contains(u'\\')) {
        parts = t.split(u'\\', Qt::SkipEmptyParts);
    } else {
        parts = t.split(u'.', Qt::SkipEmptyParts);
        std::reverse(parts.begin(), parts.end());
    }
    QStringList clean;
    for (QString p : parts) {
        p = p.trimmed();
        const qsizetype eq = p.indexOf(u'=');
        if (eq > 0 && eq <= 2)
            p = p.mid(eq + 1); // typed names: O=ACME, OU=SALES, CN=FS1
        if (!p.isEmpty() && !text::sameName(p, kRoot))
            clean << p;
    }
    return clean;
}

int replicaTypeOf(const QString& text) {
    for (int i = 0; i < static_cast<int>(kTypeNames.size()); ++i)
        if (text::sameName(text, QString::fromLatin1(kTypeNames[static_cast<size_t>(i)])))
            return i;
    const auto n = parseNumber(text);
    return n && *n >= 0 && *n <= 3 ? *n : -1;
}

int replicaStateOf(const QString& text) {
    for (const auto& s : kStateNames)
        if (text::sameName(text, QString::fromLatin1(s.name)))
            return s.code;
    const auto n = parseNumber(text);
    return n && *n >= 0 ? *n : -1;
}

QString replicaTypeName(int type) {
    return type >= 0 && type < static_cast<int>(kTypeNames.size())
               ? QString::fromLatin1(kTypeNames[static_cast<size_t>(type)])
               : QString::number(type);
}

QString replicaStateName(int state) {
    for (const auto& s : kStateNames)
        if (s.code == state)
            return QString::fromLatin1(s.name);
    return QString::number(state);
}

NetworkDescription parseNetworkDescription(const QByteArray& content) {
    Parser parser;
    const QString text = QString::fromUtf8(content);
    QStringList lines = text.split(u'\n');
    int number = 0;
    for (QString line : lines) {
        ++number;
        if (line.endsWith(u'\r'))
            line.chop(1);
        parser.line(number, line);
    }
    parser.finish();
    return parser.result;
}

namespace {

QString yesNo(bool on) {
    return on ? QStringLiteral("yes") : QStringLiteral("no");
}

void scenarioLines(QStringList& out, const ServerScenario& sc) {
    const ServerScenario d;
    auto sw = [&](const char* key, bool v, bool dv) {
        if (v != dv)
            out << QStringLiteral("%1 = %2").arg(QLatin1String(key), yesNo(v));
    };
    auto num = [&](const char* key, int v, int dv) {
        if (v != dv)
            out << QStringLiteral("%1 = %2").arg(QLatin1String(key)).arg(v);
    };
    sw("reachable", sc.reachable, d.reachable);
    sw("disconnected", sc.disconnected, d.disconnected);
    sw("console-rights", sc.consoleRights, d.consoleRights);
    num("dsrepair-start-ms", sc.dsrepairStartMs, d.dsrepairStartMs);
    num("dsrepair-run-ms", sc.dsrepairRunMs, d.dsrepairRunMs);
    sw("dsrepair-keeps-log", sc.dsrepairKeepsLog, d.dsrepairKeepsLog);
    sw("dsrepair-unloads", sc.dsrepairUnloads, d.dsrepairUnloads);
    out << QStringLiteral("ds-version = ") + sc.dsVersion;
    sw("time-in-sync", sc.timeInSync, d.timeInSync);
    num("time-offset", sc.timeOffsetSeconds, d.timeOffsetSeconds);
    num("dsrepair-errors", sc.dsrepairErrors, d.dsrepairErrors);
    num("replica-sync-age-minutes", sc.replicaSyncAgeMinutes, d.replicaSyncAgeMinutes);
    out << QStringLiteral("date-style = ") + sc.dateStyle;
    num("obituaries", sc.obituaries, d.obituaries);
    num("trace-interval-ms", sc.traceIntervalMs, d.traceIntervalMs);
    num("sync-errors", sc.syncErrors, d.syncErrors);
    sw("ttf-stuck", sc.ttfStuck, d.ttfStuck);
    sw("trace-keeps-file", sc.traceKeepsFile, d.traceKeepsFile);
    num("config-run-ms", sc.configRunMs, d.configRunMs);
    num("connection-drops", sc.connectionDrops, d.connectionDrops);
    num("vanish-after-ms", sc.vanishAfterMs, d.vanishAfterMs);
    num("year-digits", sc.yearDigits, d.yearDigits);
}

} // namespace

QByteArray formatNetworkDescription(const NetworkDescription& description) {
    QStringList out{
        QStringLiteral("# The directory of this network folder, read by Tarnwick at every change."),
        QStringLiteral("# Sections: [tree NAME], [server NAME], [user NAME], [scenario SERVER]."),
        QStringLiteral(
            "# Lines are \"key = value\"; \"#\" or \";\" starts a comment line, \" ;\" a"),
        QStringLiteral("# comment behind a value. Names are matched blind to case. Contexts are"),
        QStringLiteral("# written from the root down (ACME\\SALES) or dotted (SALES.ACME)."),
        QStringLiteral("# A server's files live in servers/SERVER/VOLUME/ beside this file."),
        QStringLiteral("# replica = partition | Master, Read/Write, Read Only or SubRef | state | "
                       "last sync (UTC)"),
        QString(),
    };
    for (const auto& t : description.trees) {
        out << QStringLiteral("[tree %1]").arg(t.name);
        out << QStringLiteral("logged-in = ") + yesNo(t.loggedIn);
        if (!t.user.isEmpty())
            out << QStringLiteral("user = ") + t.user;
        for (const QString& c : t.containers)
            out << QStringLiteral("container = ") + c;
        out << QString();
    }
    for (const auto& s : description.servers) {
        out << QStringLiteral("[server %1]").arg(s.name);
        out << QStringLiteral("tree = ") + s.tree;
        out << QStringLiteral("context = ") + s.context.join(u'\\');
        out << QStringLiteral("version = ") + s.version;
        if (!s.volumes.isEmpty())
            out << QStringLiteral("volumes = ") + s.volumes.join(QStringLiteral(", "));
        if (!s.address.isEmpty())
            out << QStringLiteral("address = ") + s.address;
        out << QStringLiteral("connected = ") + yesNo(s.connected);
        out << QStringLiteral("login = ") + yesNo(s.login);
        if (s.authentication != 2)
            out << QStringLiteral("authentication = %1").arg(s.authentication);
        for (const auto& r : s.replicas)
            out << QStringLiteral("replica = %1 | %2 | %3 | %4")
                       .arg(r.PartitionFullName, replicaTypeName(r.ReplicaType),
                            replicaStateName(r.ReplicaState), r.LastSync);
        for (const QString& d : s.denied)
            out << QStringLiteral("deny = ") + d;
        out << QString();
    }
    for (const auto& u : description.users) {
        out << QStringLiteral("[user %1]").arg(u.name);
        out << QStringLiteral("tree = ") + u.tree;
        out << QStringLiteral("context = ") + u.context.join(u'\\');
        out << QStringLiteral("password = ") + u.password;
        out << QString();
    }
    for (const auto& s : description.servers) {
        out << QStringLiteral("[scenario %1]").arg(s.name);
        scenarioLines(out, s.scenario);
        out << QString();
    }
    return out.join(u'\n').toUtf8();
}

} // namespace twk
