#include "logs/LogDate.h"

#include "core/FormControls.h"

#include <gtest/gtest.h>

using twk::logDateValue;

TEST(LogDate, ReadsTheFormsTheReaderWrites) {
    EXPECT_EQ(logDateValue("1-15-2003"), QDate(2003, 1, 15));
    EXPECT_EQ(logDateValue("12-31-2002"), QDate(2002, 12, 31));
    EXPECT_EQ(logDateValue("15.01.2003"), QDate(2003, 1, 15));
    EXPECT_EQ(logDateValue("1.2.2003"), QDate(2003, 2, 1));
    EXPECT_EQ(logDateValue("01/15/03"), QDate(2003, 1, 15));
    EXPECT_EQ(logDateValue("2003-01-15"), QDate(2003, 1, 15));
    EXPECT_EQ(logDateValue("  1-15-2003  "), QDate(2003, 1, 15));
}

TEST(LogDate, TwoDigitYearsLieFrom1950To2049) {
    EXPECT_EQ(logDateValue("1-15-49"), QDate(2049, 1, 15));
    EXPECT_EQ(logDateValue("1-15-50"), QDate(1950, 1, 15));
    EXPECT_EQ(logDateValue("1-15-99"), QDate(1999, 1, 15));
    EXPECT_EQ(logDateValue("1-15-00"), QDate(2000, 1, 15));
}

TEST(LogDate, DayFirstWhenTheMonthCannotBeAMonth) {
    EXPECT_EQ(logDateValue("15-01-2003"), QDate(2003, 1, 15));
    EXPECT_EQ(logDateValue("05-01-2003"), QDate(2003, 5, 1)); // month first when both fit
}

TEST(LogDate, AnythingElseIsNoDate) {
    for (const char* bad : {"", "first entry", "1-15", "1-15-2003-4", "1--15-2003", "-1-15-2003",
                            "1-15-", "1-32-2003", "2-29-2003", "13-13-2003", "1-15-203",
                            "1-15-20033", "1 15 2003", "1-15-2003 x", "1\t-15-2003"})
        EXPECT_FALSE(logDateValue(bad).isValid()) << bad;
    EXPECT_TRUE(logDateValue("2-29-2004").isValid());
}

TEST(LogDate, CalendarTextIgnoresTheLocale) {
    twk::CalendarState c;
    EXPECT_EQ(c.Text(), "");
    c.Value = QDate(2003, 3, 5);
    EXPECT_EQ(c.Text().toStdString(), "05 Mar 2003");
}
