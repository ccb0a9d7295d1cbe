#include "notes/NoteSchedule.h"

#include <gtest/gtest.h>

namespace
{

using namespace NoteSchedule;

TEST(NoteScheduleTest, TheSentenceSaysTheKindAndTheCalendarRefusesDaysItLacks)
{
    const QString time = ReviewTime(QStringLiteral("09"), 5, QStringLiteral("AM"));
    const struct {
        int kind;
        int every;
        QString day;
        QString year;
        QString sentence; // null: the calendar has no such date
    } cases[] = {
        {0, 0, "5", "1998", "Monday, January 5, 1998 at 09:05 AM"},
        {1, 0, "5", "1998", "Daily at 09:05 AM"},
        {2, 1, "5", "1998", "Weekly on Mondays at 09:05 AM"},
        {3, 0, "5", "1998", "Monthly on 5, at 09:05 AM"},
        {4, 0, "5", "1998", "Yearly on January 5, at 09:05 AM"},
        {0, 1, "29", "2028", "Tuesday, February 29, 2028 at 09:05 AM"},
        {0, 1, "29", "2027", QString()},
        {0, 1, "30", "2028", QString()},
        // A weekday position taken as a month: Wednesday is April, which has 30 days.
        {2, 3, "31", "2026", QString()},
        {2, 2, "31", "2026", "Weekly on Mondays at 09:05 AM"},
        {0, 0, "", "2026", QString()},
        {0, 0, "0", "2026", QString()},
        {0, -1, "5", "2026", QString()},
        {5, 0, "5", "2026", QString()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.kind << " " << c.every << " " << c.day.toStdString()
                                        << " " << c.year.toStdString());
        const std::optional<QDate> date = ReviewDate(c.every, c.day, c.year);
        const bool outsideKinds = c.kind == 5;
        ASSERT_EQ(date.has_value(), !c.sentence.isNull() || outsideKinds);
        if (date) {
            EXPECT_EQ(ReviewSentence(c.kind, *date, QStringLiteral("Monday"), c.day, c.year, time),
                      c.sentence);
        }
    }
}

TEST(NoteScheduleTest, TypedValuesAreKeptOrRefusedByTheirRules)
{
    EXPECT_EQ(ReviewTime(QStringLiteral("12"), -1, QStringLiteral("PM")),
              QStringLiteral("12:-01 PM"));
    const struct {
        QString text;
        bool hour;
        bool minute;
    } typed[] = {{"1", true, true},   {"12", true, true},  {"13", false, true},  {"0", false, true},
                 {"00", false, true}, {"59", false, true}, {"60", false, false}, {"", false, true}};
    for (const auto& t : typed) {
        SCOPED_TRACE(t.text.toStdString());
        EXPECT_EQ(HourAccepted(t.text), t.hour);
        EXPECT_EQ(MinuteAccepted(t.text), t.minute);
    }
    const std::pair<QString, QString> years[] = {
        {"98", "1998"}, {"05", "1905"}, {"2", "2"}, {"199", "199"}, {"2026", "2026"}};
    for (const auto& [typedYear, completed] : years)
        EXPECT_EQ(CompletedYear(typedYear), completed);
    const std::pair<int, std::pair<int, int>> hours[] = {
        {0, {11, 0}}, {1, {0, 0}}, {11, {10, 0}}, {12, {11, 1}}, {13, {0, 1}}, {23, {10, 1}}};
    for (const auto& [hour, indexes] : hours) {
        SCOPED_TRACE(hour);
        EXPECT_EQ(HourIndexOf(QTime(hour, 0)), indexes.first);
        EXPECT_EQ(AmPmIndexOf(QTime(hour, 0)), indexes.second);
    }
}

} // namespace
