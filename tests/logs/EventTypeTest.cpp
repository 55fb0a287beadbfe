#include "logs/EventTypeRecognizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace twk;

namespace {
int en(const char* m) {
    return iEventType(m, LogLanguage::English);
}
int de(const char* m) {
    return iEventType(m, LogLanguage::German);
}
} // namespace

TEST(LogsEventType, EnglishPhrasesAreFoundWithoutCase) {
    EXPECT_EQ(en("Established communication with server FS2."), 7);
    EXPECT_EQ(en("unable to COMMUNICATE with server FS2."), 8);
    EXPECT_EQ(en("TIME SYNCHRONIZATION HAS BEEN ESTABLISHED."), 9);
    EXPECT_EQ(en("Intruder detection lock-out on account ADMIN"), 19);
    EXPECT_EQ(en("Router configuration error detected"), 32);
    EXPECT_EQ(en("Volume SYS was mounted."), 24);
    EXPECT_EQ(en(""), 24);
}

TEST(LogsEventType, LaterHitsOverwriteEarlierOnes) {
    // "deregistered as an NCP" holds "registered as an NCP" and comes later.
    EXPECT_EQ(en("Service 1234 deregistered as an NCP service address"), 14);
    EXPECT_EQ(en("Service 1234 registered as an NCP service address"), 13);
    EXPECT_EQ(en("Local database is open, audit trail started"), 23);
    EXPECT_EQ(en("Device deactivated during audit"), 23);
    EXPECT_EQ(en("Bindery close after Synthetic time on partition"), 30);
}

TEST(LogsEventType, GermanPrefixAndSuffixTestsAreExact) {
    EXPECT_EQ(de("Kommunikation mit Server FS2 wurde hergestellt"), 7);
    EXPECT_EQ(de("Kommunikation mit Server FS2 ist nicht möglich"), 8);
    EXPECT_EQ(de("kommunikation mit Server FS2 wurde hergestellt"), 24);
    EXPECT_EQ(de("Fernkonsolenverbindung von 10.0.0.5 gewährt"), 15);
    EXPECT_EQ(de("Fernkonsolenverbindung von 10.0.0.5 getrennt"), 16);
    EXPECT_EQ(de("Fernkonsolenverbindung von 10.0.0.5 abgelehnt"), 17);
    EXPECT_EQ(de("Fernkonsolenverbindung von 10.0.0.5 abgelehnt."), 24);
}

TEST(LogsEventType, GermanDeviceRuleNeedsTheWordAtTheStart) {
    EXPECT_EQ(de("Gerät 0x3 wurde deaktiviert"), 20);
    EXPECT_EQ(de("Das Gerät 0x3 wurde deaktiviert"), 24);
    EXPECT_EQ(de("Gerät 0x3 wurde DEAKTIVIERT"), 20); // the phrase itself is case-blind
}

TEST(LogsEventType, GermanContainsTestsFoldUmlauts) {
    EXPECT_EQ(de("ÖFFNEN DER BINDERY angefordert"), 27);
    EXPECT_EQ(de("Schließen der Bindery angefordert"), 28);
    EXPECT_EQ(de("Die Systemzeit wurde geändert"), 29);
    EXPECT_EQ(de("Die Systemzeit wurde gesetzt"), 24);
    EXPECT_EQ(de("Revision gestartet, NLS aktiv"), 22);
    EXPECT_EQ(de("NLS meldet: Router nicht erreichbar"), 32);
}

TEST(LogsEventType, GermanHasNoPatternsForSomeTypes) {
    EXPECT_EQ(de("registered as an NCP"), 24);
    EXPECT_EQ(de("Synthetic time on partition"), 24);
}

TEST(LogsEventType, ManyMessagesAtOnceGiveTheTypesOfOneByOne) {
    // Messages of very different lengths, so that the scans of several messages end at
    // different places and hand over to the next message in the middle of others.
    const std::vector<std::string> english = {
        "Established communication with server FS2.",
        "",
        "x",
        "Volume SYS was mounted. " + std::string(300, 'v') + " audit",
        "TIME SYNCHRONIZATION HAS BEEN ESTABLISHED.",
        "Router configuration error",
        "Service 1234 deregistered as an NCP service address",
        "Unable to communicate with server FS2. Time Synchronization has been lost",
        std::string(70, 'a') + "udit",
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
