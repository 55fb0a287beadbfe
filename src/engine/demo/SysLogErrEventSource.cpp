#include "demo/SysLogErrEventSource.h"

#include "demo/SysLogErrMessages.h"

#include <array>
#include <cstdio>

namespace twk::demo {

namespace {

constexpr int kSequencePercent = 15; // of the picks start a run of messages

// Names of the demo network. None of them holds a phrase of the recognition tables.
constexpr std::string_view kPeers[] = {"FS2",   "FS3",     "NW-SALES", "NW-BERLIN", "NW-HQ-01",
                                       "MAIL1", "GW-POST", "BACKUP1",  "PRINT-01",  "NW-MUNICH"};
constexpr std::string_view kVolumes[] = {"SYS", "VOL1", "DATA", "USERS", "APPS", "MAIL", "HOME"};
constexpr std::string_view kUsers[] = {".CN=admin.O=ACME",
                                       ".CN=jsmith.OU=Sales.O=ACME",
                                       ".CN=mbauer.OU=Berlin.O=ACME",
                                       ".CN=kwagner.OU=IT.O=ACME",
                                       ".CN=backup.OU=IT.O=ACME",
                                       ".CN=guest.O=ACME",
                                       ".CN=lschulz.OU=Finance.O=ACME",
                                       ".CN=tjones.OU=Sales.O=ACME"};
constexpr std::string_view kPartitions[] = {
    "[Root].ACME_TREE.", ".O=ACME.ACME_TREE.", ".OU=Sales.O=ACME.ACME_TREE.",
    ".OU=Berlin.O=ACME.ACME_TREE.", ".OU=IT.O=ACME.ACME_TREE."};
constexpr std::string_view kDevices[] = {
    "[V312-A2-D0:0] COMPAQ BD00962373 rev:B016", "[V503-A1-D1:0] SEAGATE ST318406LW rev:0109",
    "[V025-A3-D2:0] IBM DDYS-T36950M rev:S96H", "[V321-A0-D0:0] HP CD-ROM 224E rev:1.1A"};
constexpr std::string_view kEventModules[] = {
    "CLIB.NLM",  "MONITOR.NLM", "DSREPAIR.NLM", "TSA600.NLM", "BTRIEVE.NLM", "NDPSM.NLM",
    "GWPOA.NLM", "APACHE2.NLM", "TOMCAT4.NLM",  "NWMKDE.NLM", "PORTAL.NLM",  "LDAP.NLM"};
constexpr std::string_view kBoards[] = {"CE100B_1_EII", "3C90X_1_E82", "N100_2_EII", "E1000_1_EII"};
constexpr std::string_view kFiles[] = {"\\USERS\\JSMITH\\BUDGET.XLS", "\\APPS\\WP\\WPC.INI",
                                       "\\DATA\\SALES\\Q3REPORT.DOC", "\\HOME\\MBAUER\\MAIL.PST",
                                       "\\PUBLIC\\NWADMN32.EXE"};

// Version of each module that writes to the log, for the error number text.
std::string_view moduleVersion(std::string_view module) {
    if (module == "DS")
        return "10552.79";
    if (module == "NLSLSP")
        return "5.02";
    if (module == "NSS")
        return "3.00";
    if (module == "BKUPEXEC")
        return "9.10";
    return "5.60";
}

template <std::size_t N>
std::string_view pick(DemoRandom& random, const std::string_view (&names)[N]) {
    return names[random.below(N)];
}

void appendHex(std::string& out, DemoRandom& random, int digits) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    for (int i = 0; i < digits; ++i)
        out.push_back(kDigits[random.below(16)]);
}

void appendNumber(std::string& out, long long n) {
    char text[24];
    const int length = std::snprintf(text, sizeof text, "%lld", n);
    out.append(text, static_cast<std::size_t>(length));
}

// The error number text of a message: fixed per message, as servers number them.
void makeErrorNumber(std::string& out, const SysLogErrMessage& m, int index) {
    out.assign(m.module);
    out += '-';
    out += moduleVersion(m.module);
    out += '-';
    appendNumber(out, 3 + (index * 37) % 1290);
    char id[24];
    const int length =
        std::snprintf(id, sizeof id, "  [nmID=%X]", (m.locus + 1) * 0x10000 + index * 3 + 10);
    if (out.size() + static_cast<std::size_t>(length) <= kErrorNumberWidth)
        out.append(id, static_cast<std::size_t>(length));
}

} // namespace

SysLogErrEventSource::SysLogErrEventSource(LogLanguage language, std::uint64_t seed,
                                           std::string serverName)
    : language_(language), random_(seed), serverName_(std::move(serverName)) {
    for (const SysLogErrMessage& m : sysLogErrMessages(language_))
        totalWeight_ += m.weight;
    drawSequenceValues();
}

void SysLogErrEventSource::drawSequenceValues() {
    values_.peer.assign(pick(random_, kPeers));
    values_.address.clear();
    appendValue(values_.address, "{ip-or-ipx}");
    values_.user.assign(pick(random_, kUsers));
    values_.volume.assign(pick(random_, kVolumes));
    values_.device.assign(pick(random_, kDevices));
}

int SysLogErrEventSource::pickMessage() {
    int draw = static_cast<int>(random_.below(static_cast<std::uint32_t>(totalWeight_)));
    const auto messages = sysLogErrMessages(language_);
    for (std::size_t i = 0; i < messages.size(); ++i) {
        draw -= messages[i].weight;
        if (draw < 0)
            return static_cast<int>(i);
    }
    return 0;
}

void SysLogErrEventSource::startSequence() {
    const auto sequences = sysLogErrSequences();
    int total = 0;
    for (const SysLogErrSequence& s : sequences)
        total += s.weight;
    int draw = static_cast<int>(random_.below(static_cast<std::uint32_t>(total)));
    for (const SysLogErrSequence& s : sequences) {
        draw -= s.weight;
        if (draw >= 0)
            continue;
        for (auto key = s.keys.rbegin(); key != s.keys.rend(); ++key)
            if (!key->empty())
                pending_.push_back(sysLogErrMessageIndex(*key));
        break;
    }
    drawSequenceValues();
}

void SysLogErrEventSource::next(SysLogErrEvent& event) {
    int index;
    if (pending_.empty() && random_.percent(kSequencePercent))
        startSequence();
    if (!pending_.empty()) {
        index = pending_.back();
        pending_.pop_back();
    } else {
        index = pickMessage();
        drawSequenceValues(); // a message on its own names whatever it likes
    }
    const SysLogErrMessage& m = sysLogErrMessages(language_)[static_cast<std::size_t>(index)];
    event.key = m.key;
    event.severity = m.severity;
    event.locus = m.locus;
    event.klass = m.klass;
    event.eventType = m.eventType;
    makeErrorNumber(event.errorNumber, m, index);
    std::size_t count = 0;
    for (const std::string_view pattern : m.lines)
        count += pattern.empty() ? 0 : 1;
    event.lines.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        event.lines[i].clear();
        fill(event.lines[i], m.lines[i]);
    }
}

void SysLogErrEventSource::fill(std::string& out, std::string_view pattern) {
    std::size_t from = 0;
    while (true) {
        const auto open = pattern.find('{', from);
        const auto close = open == std::string_view::npos ? open : pattern.find('}', open);
        if (close == std::string_view::npos) {
            out.append(pattern.substr(from));
            return;
        }
        out.append(pattern.substr(from, open - from));
        appendValue(out, pattern.substr(open, close - open + 1));
        from = close + 1;
    }
}

void SysLogErrEventSource::appendValue(std::string& out, std::string_view placeholder) {
    DemoRandom& r = random_;
    if (placeholder == "{server}") {
        out += serverName_;
    } else if (placeholder == "{peer}") {
        out += values_.peer;
    } else if (placeholder == "{address}") {
        out += values_.address;
    } else if (placeholder == "{user}") {
        out += values_.user;
    } else if (placeholder == "{volume}") {
        out += values_.volume;
    } else if (placeholder == "{device}") {
        out += values_.device;
    } else if (placeholder == "{partition}") {
        out += pick(r, kPartitions);
    } else if (placeholder == "{nlm}") {
        out += pick(r, kEventModules);
    } else if (placeholder == "{lan}") {
        out += pick(r, kBoards);
    } else if (placeholder == "{file}") {
        out += pick(r, kFiles);
    } else if (placeholder == "{ip}") {
        out += "10.";
        appendNumber(out, r.between(1, 30));
        out += '.';
        appendNumber(out, r.between(0, 254));
        out += '.';
        appendNumber(out, r.between(1, 254));
    } else if (placeholder == "{ip-or-ipx}") {
        if (r.percent(50)) {
            appendValue(out, "{ip}");
        } else {
            appendHex(out, r, 8);
            out += ':';
            appendHex(out, r, 12);
        }
    } else if (placeholder == "{node}") {
        appendHex(out, r, 12);
    } else if (placeholder == "{net}" || placeholder == "{net2}") {
        appendHex(out, r, 8);
    } else if (placeholder == "{hex}") {
        appendHex(out, r, 8);
    } else if (placeholder == "{slot}") {
        appendNumber(out, r.between(1, 8));
    } else if (placeholder == "{percent}") {
        appendNumber(out, r.between(85, 99));
    } else if (placeholder == "{low}") {
        appendNumber(out, r.between(5, 25));
    } else if (placeholder == "{bytes}") {
        appendNumber(out, 16LL * r.between(256, 65536));
    } else {
        appendNumber(out, r.between(2, 500)); // {n}
    }
}

} // namespace twk::demo
