#include "logs/Vocabulary.h"

#include <gtest/gtest.h>

using namespace twk;

TEST(LogsVocabulary, SelectorLookupsShiftTheTablesByOne) {
    EXPECT_EQ(sCategory(0), "(all)");
    EXPECT_EQ(sCategory(1), "Class Unknown");
    EXPECT_EQ(sCategory(22), "Protect Violation");
    EXPECT_EQ(sCategory(23), "???");
    EXPECT_EQ(sSource(0), "(all)");
    EXPECT_EQ(sSource(20), "Domain");
    EXPECT_EQ(sSource(21), "???");
    EXPECT_EQ(sSource(-1), "???");
}

TEST(LogsVocabulary, EventTypeSelectorSkipsTheEmptyAndUnknownEntries) {
    EXPECT_EQ(sEventType(0), "(all)");
    EXPECT_EQ(sEventType(1), "established communication with server...");
    EXPECT_EQ(sEventType(16), "Novell Licensing Services Event");
    EXPECT_EQ(sEventType(17), "auditing event");
    EXPECT_EQ(sEventType(18), "Bindery open request");
    EXPECT_EQ(sEventType(23), "router configuration error");
    EXPECT_EQ(sEventType(24), "???");
}

TEST(LogsVocabulary, StatusSelectorFollowsGravityNotSeverity) {
    EXPECT_EQ(sStatusIcon(0), "(all)");
    EXPECT_EQ(sStatusIcon(3), "Recovered");
    EXPECT_EQ(sStatusIcon(4), "Operation Aborted (NOS not affected)");
    EXPECT_EQ(sStatusIcon(7), "Fatal");
    EXPECT_EQ(sStatusIcon(8), "unknown");
}

TEST(LogsVocabulary, InformationalRowsMatchOnlyTheAllStatusSelector) {
    EXPECT_TRUE(bolFilter1(0, "Informational"));
    EXPECT_FALSE(bolFilter1(1, "Informational"));
    EXPECT_TRUE(bolFilter1(6, "Critical"));
    EXPECT_FALSE(bolFilter1(7, "Critical"));
    EXPECT_TRUE(bolFilter1(5, "Operation Aborted"));
    EXPECT_FALSE(bolFilter1(2, "???"));
}

TEST(LogsVocabulary, EventTypeNamesAndKeysByImage) {
    EXPECT_EQ(EventTypeName(24), "icon not available");
    EXPECT_EQ(EventTypeName(25), "");
    EXPECT_EQ(EventTypeName(32), "router configuration error");
    EXPECT_EQ(EventTypeName(33), "");
    EXPECT_EQ(EventTypeKey(19), "INTRUDER-DETECTION");
    EXPECT_EQ(EventTypeImageOfKey("NCP-KILL"), 14);
    EXPECT_EQ(EventTypeImageOfKey("ALL"), -1);
    EXPECT_EQ(RuleCategories.front(), "Auditing");
    EXPECT_EQ(RuleCategories.back(), "ZENWorks");
}

TEST(LogsVocabulary, TextsKeepTheirSpelling) {
    EXPECT_TRUE(StatusHelp[4].ends_with(
        "a shutdown has occured. (Example: a disk drive is deactivated because of driver "
        "unloading)"));
    EXPECT_TRUE(StatusHelp[6].starts_with("You 'll see this error"));
    EXPECT_TRUE(kMissingStatusHelp.ends_with("will be replaced by an \"?\" - icon."));
    EXPECT_EQ(ClassNames[16], "Limit almost Exceeded");
}
