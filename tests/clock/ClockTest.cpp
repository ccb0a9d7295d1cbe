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
    const std::tuple<int, int, bool, QString> cases[] = {
        // One row per shape, on the edges of the hour and of the shapes.
        {12, 10, false, "The time now is 12:10."},
        {13, 10, false, "The time now is 1:10."},
        {13, 9, false, R"(The time now is 1: \map="o9"="09"\.)"},
        {23, 1, false, R"(The time now is 11: \map="o1"="01"\.)"},
        {12, 0, false, "The time now is 12O'clock"},
        {13, 0, false, "The time now is 1 O'clock"},
        // SayText wraps a line in its own balloon tag unless the sentence carries tags of its own.
        {14, 10, true, R"(\map="The time now is 2:10."=""\)"},
        {14, 0, true, R"(\map="The time now is 2 O'clock"=""\)"},
        {14, 9, true, R"(\map="The time now is 2:"=""\\map="o9"=""\)"},
    };
    for (const auto& [hour, minute, hideBalloon, text] : cases) {
        SCOPED_TRACE(text.toStdString());
        form().chkBalloon->setChecked(hideBalloon);
        EXPECT_EQ(spokenAt(SayTime, {QDate(2026, 3, 4), QTime(hour, minute, 59)}),
                  QStringList{text});
        EXPECT_EQ(fp.agent->calls.size(), 1);
        EXPECT_EQ(form().chkBalloon->isChecked(), hideBalloon);
    }
}

TEST_F(ClockTest, SayDateInEnglishWhateverTheLocale)
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(dateOn({1998, 11, 20}), "Today is Friday. 20th of November, 1998.");
    // The day's ending, the weekday from 5 January 2026 (a Monday) on, and the month.
    QStringList words;
    for (int day : {1, 2, 3, 11, 12, 13, 21, 22, 23, 31})
        words << dateOn({2026, 12, day}).section(' ', 3, 3);
    for (int i = 0; i < 7; ++i)
        words << dateOn({2026, 1, 5 + i}).section(' ', 2, 2);
    for (int m = 1; m <= 12; ++m)
        words << dateOn({2026, m, 10}).section(' ', 5, 5);
    EXPECT_EQ(words.join(' '), "1st 2nd 3rd 11th 12th 13th 21st 22nd 23rd 31st "
                               "Monday. Tuesday. Wednesday. Thursday. Friday. Saturday. Sunday. "
                               "January, February, March, April, May, June, July, August, "
                               "September, October, November, December,");
    QLocale::setDefault(QLocale::c());
}

TEST_F(ClockTest, GreetingSaysTheWordOfTheHourAndWhatItIsSetTo)
{
    const QString text = "Have a nice day", date = "Today is Wednesday. 4th of March, 2026.";
    // Greeting 0 is heard in first_run.sh and LoadSettingsTest, 1 in options_greeting.sh.
    const std::tuple<QString, QTime, QStringList> cases[] = {
        {"3", {11, 59}, {"Good Morning.", text}},
        {"3", {12, 0}, {"Good Afternoon.", text}},
        {"3", {17, 59}, {"Good Afternoon.", text}},
        {"3", {18, 0}, {"Good Evening. ", text}},
        {"2", {14, 30}, {"Good Afternoon.", date, text}},
        {"7", {14, 30}, {"Good Afternoon.", text}},
    };
    fp.store.setValue("GreetingText", text);
    for (const auto& [greeting, time, spoken] : cases) {
        fp.store.setValue("Greeting", greeting);
        EXPECT_EQ(spokenAt(Greet, {QDate(2026, 3, 4), time}), spoken)
            << greeting.toStdString() << " " << time.toString().toStdString();
    }
    for (const QString off : {"2", "x"}) {
        fp.store.setValue("TimeGreeting", off);
        EXPECT_TRUE(spokenAt(Greet, {QDate(2026, 3, 4), QTime(14, 30)}).isEmpty())
            << off.toStdString();
    }
}

TEST_F(ClockTest, AgentErrorIsReportedAndEndsTheGreeting)
{
    fp.agent->failCalls("Speak(" + Tags + "The time", platform::RuntimeError(5, "Agent", "broken"));
    EXPECT_EQ(spokenAt(Greet, {QDate(2026, 3, 4), QTime(14, 30)}), QStringList{"Good Afternoon."});
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Unknown Error"});
    EXPECT_TRUE(errorBoxes()[0].contains("( 12 )"));
}
