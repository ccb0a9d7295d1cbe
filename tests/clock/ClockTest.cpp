#include "clock/Greet.h"
#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "fakes/CharacterFixture.h"

#include <QCheckBox>
#include <QLocale>
#include <gtest/gtest.h>

struct ClockTest : CharacterFixture, ::testing::Test {
    // Runs the routine at that moment; the texts spoken, without the voice tags.
    QStringList spokenAt(void (*routine)(App&), const QDateTime& now)
    {
        fp.agent->calls.clear();
        fp.clock.now = now;
        routine(app);
        QStringList texts;
        for (const QString& line : fp.agent->spoken())
            texts << (line.startsWith(Tags) ? line.mid(Tags.size()) : "<untagged>" + line);
        return texts;
    }
    QString dateOn(const QDate& date) { return spokenAt(SayDate, {date, QTime(10, 0)}).join('|'); }
};

TEST_F(ClockTest, SayTimeForEveryShapeOfTheClock)
{
    const struct {
        int hour, minute;
        bool hideBalloon;
        QString text;
    } cases[] = {
        // One row per shape, on the edges of the hour and of the shapes.
        {12, 10, false, "The time now is 12:10."},
        {13, 10, false, "The time now is 1:10."},
        {13, 9, false, R"(The time now is 1: \map="o9"="09"\.)"},
        {23, 1, false, R"(The time now is 11: \map="o1"="01"\.)"},
        {12, 0, false, "The time now is 12O'clock"},
        {13, 0, false, "The time now is 1 O'clock"},
        {14, 10, true, "The time now is 2:10."},
        {14, 0, true, "The time now is 2 O'clock"},
        {14, 9, true, R"(\map="The time now is 2:"=""\\map="o9"=""\)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.hour << ":" << c.minute << " hidden " << c.hideBalloon);
        form().chkBalloon->setChecked(c.hideBalloon);
        const QStringList spoken =
            spokenAt(SayTime, {QDate(2026, 3, 4), QTime(c.hour, c.minute, 59)});
        // SayText wraps a line in its own balloon tag unless the sentence carries tags of its own.
        const bool ownTags = c.hideBalloon && c.minute > 0 && c.minute < 10;
        EXPECT_EQ(spoken, QStringList{c.hideBalloon && !ownTags ? R"(\map=")" + c.text + R"("=""\)"
                                                                : c.text});
        EXPECT_EQ(fp.agent->calls.size(), 1);
        EXPECT_EQ(form().chkBalloon->isChecked(), c.hideBalloon);
    }
}

TEST_F(ClockTest, SayDateInEnglishWhateverTheLocale)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(dateOn({1998, 11, 20}), "Today is Friday. 20th of November, 1998.");
    const std::pair<int, const char*> endings[] = {
        {1, "1st"},   {2, "2nd"},   {3, "3rd"},   {11, "11th"}, {12, "12th"},
        {13, "13th"}, {21, "21st"}, {22, "22nd"}, {23, "23rd"}, {31, "31st"}};
    for (const auto& [day, word] : endings)
        EXPECT_TRUE(dateOn({2026, 12, day}).endsWith(QString(". ") + word + " of December, 2026."))
            << word;
    const char* weekdays[] = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                              "Friday", "Saturday", "Sunday"};
    // 5 January 2026 is a Monday.
    for (int i = 0; i < 7; ++i)
        EXPECT_TRUE(dateOn({2026, 1, 5 + i}).startsWith(QString("Today is ") + weekdays[i] + ". "));
    const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                            "July",    "August",   "September", "October", "November", "December"};
    for (int m = 1; m <= 12; ++m)
        EXPECT_TRUE(
            dateOn({2026, m, 10}).endsWith(QString("10th of ") + months[m - 1] + ", 2026."));
    QLocale::setDefault(QLocale::c());
}

TEST_F(ClockTest, GreetWordFollowsTheHour)
{
    fp.store.setValue("Greeting", "3");
    const std::pair<QTime, QString> cases[] = {{{11, 59}, "Good Morning."},
                                               {{12, 0}, "Good Afternoon."},
                                               {{17, 59}, "Good Afternoon."},
                                               {{18, 0}, "Good Evening. "}};
    for (const auto& [time, word] : cases)
        EXPECT_EQ(spokenAt(Greet, {QDate(2026, 3, 4), time}), QStringList{word})
            << time.toString().toStdString();
}

TEST_F(ClockTest, GreetingChoosesTimeAndDate)
{
    const QDateTime at{QDate(2026, 3, 4), QTime(14, 30)};
    const QString word = "Good Afternoon.", text = "Have a nice day";
    const QString date = "Today is Wednesday. 4th of March, 2026.";
    // Greeting 0 is heard in first_run.sh and LoadSettingsTest, 1 in options_greeting.sh.
    const std::pair<QString, QStringList> cases[] = {
        {"2", {word, date, text}},
        {"3", {word, text}},
        {"7", {word, text}},
    };
    fp.store.setValue("GreetingText", text);
    for (const auto& [greeting, spoken] : cases) {
        fp.store.setValue("Greeting", greeting);
        EXPECT_EQ(spokenAt(Greet, at), spoken) << greeting.toStdString();
    }
    for (const QString off : {"2", "x"}) {
        fp.store.setValue("TimeGreeting", off);
        EXPECT_TRUE(spokenAt(Greet, at).isEmpty()) << off.toStdString();
    }
}

TEST_F(ClockTest, AgentErrorIsReportedAndEndsTheGreeting)
{
    fp.agent->failCalls("Speak(" + Tags + "The time", platform::RuntimeError(5, "Agent", "broken"));
    EXPECT_EQ(spokenAt(Greet, {QDate(2026, 3, 4), QTime(14, 30)}), QStringList{"Good Afternoon."});
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Unknown Error"});
    EXPECT_TRUE(errorBoxes()[0].contains("( 12 )"));
}
