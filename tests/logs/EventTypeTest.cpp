#include "logs/EventTypeRecognizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace twk;

TEST(LogsEventType, PhrasesOfBothLanguages) {
    constexpr LogLanguage en = LogLanguage::English, de = LogLanguage::German;
    const struct {
        const char* message;
        LogLanguage language;
        int type;
    } cases[] = {
        // English phrases are found without regard to case.
        {"Established communication with server FS2.", en, 7},
        {"unable to COMMUNICATE with server FS2.", en, 8},
        {"TIME SYNCHRONIZATION HAS BEEN ESTABLISHED.", en, 9},
        {"Intruder detection lock-out on account ADMIN", en, 19},
        {"Router configuration error detected", en, 32},
        {"Volume SYS was mounted.", en, 24},
        {"", en, 24},
        // Later hits overwrite earlier ones: "deregistered as an NCP" holds "registered as
        // an NCP" and comes later.
        {"Service 1234 deregistered as an NCP service address", en, 14},
        {"Service 1234 registered as an NCP service address", en, 13},
        {"Local database is open, audit trail started", en, 23},
        {"Device deactivated during audit", en, 23},
        {"Bindery close after Synthetic time on partition", en, 30},
        // German prefix and suffix tests are exact.
        {"Kommunikation mit Server FS2 wurde hergestellt", de, 7},
        {"Kommunikation mit Server FS2 ist nicht möglich", de, 8},
        {"kommunikation mit Server FS2 wurde hergestellt", de, 24},
        {"Fernkonsolenverbindung von 10.0.0.5 gewährt", de, 15},
        {"Fernkonsolenverbindung von 10.0.0.5 getrennt", de, 16},
        {"Fernkonsolenverbindung von 10.0.0.5 abgelehnt", de, 17},
        {"Fernkonsolenverbindung von 10.0.0.5 abgelehnt.", de, 24},
        // The German device rule needs the word at the start; the phrase is case-blind.
        {"Gerät 0x3 wurde deaktiviert", de, 20},
        {"Das Gerät 0x3 wurde deaktiviert", de, 24},
        {"Gerät 0x3 wurde DEAKTIVIERT", de, 20},
        // German contains tests fold umlauts.
        {"ÖFFNEN DER BINDERY angefordert", de, 27},
        {"Schließen der Bindery angefordert", de, 28},
        {"Die Systemzeit wurde geändert", de, 29},
        {"Die Systemzeit wurde gesetzt", de, 24},
        {"Revision gestartet, NLS aktiv", de, 22},
        {"NLS meldet: Router nicht erreichbar", de, 32},
        // German has no patterns for some types.
        {"registered as an NCP", de, 24},
        {"Synthetic time on partition", de, 24},
    };
    for (const auto& c : cases)
        EXPECT_EQ(iEventType(c.message, c.language), c.type) << c.message;
}

TEST(LogsEventType, ManyMessagesAtOnceGiveTheTypesOfOneByOne) {
    // Messages of very different lengths, so that the scans of several messages end at
    // different places and hand over to the next message in the middle of others.
    std::string longMount = "Volume SYS was mounted. ";
    longMount.append(300, 'v').append(" audit");
    std::string longAudit(70, 'a');
    longAudit.append("udit");
    const std::vector<std::string> english = {
        "Established communication with server FS2.",
        "",
        "x",
        longMount,
        "TIME SYNCHRONIZATION HAS BEEN ESTABLISHED.",
        "Router configuration error",
        "Service 1234 deregistered as an NCP service address",
        "Unable to communicate with server FS2. Time Synchronization has been lost",
        longAudit,
        "Bindery close after Synthetic time on partition"};
    std::vector<std::string> messages;
    for (int round = 0; round < 23; ++round) // more than one chunk, not a multiple of four
        for (std::size_t i = 0; i < english.size(); ++i)
            messages.push_back(english[(i * 7 + static_cast<std::size_t>(round)) % english.size()]);
    for (const LogLanguage language : {LogLanguage::English, LogLanguage::German}) {
        std::vector<std::string_view> views(messages.begin(), messages.end());
        views.push_back("Gerät 0x3 wurde deaktiviert");
        std::vector<int> types(views.size(), -1);
        iEventTypes(views.data(), types.data(), views.size(), language);
        for (std::size_t i = 0; i < views.size(); ++i)
            EXPECT_EQ(types[i], iEventType(views[i], language)) << views[i];
    }
    for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{3}}) {
        std::vector<std::string_view> views(messages.begin(),
                                            messages.begin() + static_cast<long>(count));
        std::vector<int> types(count + 1, -1);
        iEventTypes(views.data(), types.data(), count, LogLanguage::English);
        EXPECT_EQ(types[count], -1) << "wrote past the end";
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(types[i], iEventType(views[i], LogLanguage::English));
    }
}
