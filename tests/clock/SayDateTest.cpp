#include "clock/SayDate.h"

#include "character/CharacterFixture.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace
{

struct SayDateTest : CharacterFixture, ::testing::Test {
    QString spokenOn(const QDate& date)
    {
        fp.agent->calls.clear();
        fp.clock.now = QDateTime(date, QTime(10, 0));
        SayDate(app);
        const QStringList spoken = fp.agent->spoken();
        return spoken.size() == 1 ? spoken[0] : QStringLiteral("<%1 lines>").arg(spoken.size());
    }
};

TEST_F(SayDateTest, FullSentence)
{
    EXPECT_EQ(spokenOn(QDate(1998, 11, 20)),
              Tags + QStringLiteral("Today is Friday. 20th of November, 1998."));
    EXPECT_EQ(spokenOn(QDate(2026, 2, 1)),
              Tags + QStringLiteral("Today is Sunday. 1st of February, 2026."));
    EXPECT_EQ(spokenOn(QDate(2027, 1, 2)),
              Tags + QStringLiteral("Today is Saturday. 2nd of January, 2027."));
}

TEST_F(SayDateTest, DayEndings)
{
    struct Case {
        int day;
        const char* word;
    };
    const Case cases[] = {{1, "1st"},   {2, "2nd"},   {3, "3rd"},   {4, "4th"},   {11, "11th"},
                          {12, "12th"}, {13, "13th"}, {20, "20th"}, {21, "21st"}, {22, "22nd"},
                          {23, "23rd"}, {24, "24th"}, {30, "30th"}, {31, "31st"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.word);
        const QDate date(2026, 12, c.day);
        const QString expected = Tags + QStringLiteral("Today is ") +
                                 QLocale(QLocale::English).dayName(date.dayOfWeek()) +
                                 QStringLiteral(". ") + QLatin1String(c.word) +
                                 QStringLiteral(" of December, 2026.");
        EXPECT_EQ(spokenOn(date), expected);
    }
}

TEST_F(SayDateTest, EveryWeekdayAndMonthInEnglishWhateverTheLocale)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const char* weekdays[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                              "Friday", "Saturday", "Sunday"};
    // 5 January 2026 is a Monday.
    for (int i = 0; i < 7; ++i)
        EXPECT_TRUE(spokenOn(QDate(2026, 1, 5 + i))
                        .contains(QStringLiteral("Today is ") + QLatin1String(weekdays[i]) +
                                  QStringLiteral(". ")));
    const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};
    for (int m = 1; m <= 12; ++m)
        EXPECT_TRUE(spokenOn(QDate(2026, m, 10))
                        .endsWith(QStringLiteral("10th of ") + QLatin1String(months[m - 1]) +
                                  QStringLiteral(", 2026.")));
    QLocale::setDefault(QLocale::c());
}

} // namespace
