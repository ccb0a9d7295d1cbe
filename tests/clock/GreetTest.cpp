#include "clock/Greet.h"

#include "character/CharacterFixture.h"

#include <gtest/gtest.h>

namespace
{

const QString TimeAt1430 = QStringLiteral("The time now is 2:30.");
const QString DateOn = QStringLiteral("Today is Wednesday. 4th of March, 2026.");

struct GreetTest : CharacterFixture, ::testing::Test {
    GreetTest() { fp.clock.now = QDateTime(QDate(2026, 3, 4), QTime(14, 30)); }

    // The texts spoken, without the voice tags.
    QStringList greet()
    {
        Greet(app);
        QStringList texts;
        for (const QString& line : fp.agent->spoken())
            texts << (line.startsWith(Tags) ? line.mid(Tags.size())
                                            : QStringLiteral("<untagged>") + line);
        return texts;
    }
};

TEST_F(GreetTest, WordFollowsTheHour)
{
    struct Case {
        QTime time;
        QString word;
    };
    const QString morning = QStringLiteral("Good Morning.");
    const QString afternoon = QStringLiteral("Good Afternoon.");
    const QString evening = QStringLiteral("Good Evening. ");
    for (const Case& c : {Case{QTime(0, 0), morning}, Case{QTime(11, 59), morning},
                          Case{QTime(12, 0), afternoon}, Case{QTime(17, 59), afternoon},
                          Case{QTime(18, 0), evening}, Case{QTime(23, 59), evening}}) {
        SCOPED_TRACE(c.time.toString().toStdString());
        fp.agent->calls.clear();
        fp.clock.now = QDateTime(QDate(2026, 3, 4), c.time);
        fp.store.setValue(QStringLiteral("Greeting"), QStringLiteral("3"));
        EXPECT_EQ(greet(), QStringList{c.word});
    }
}

TEST_F(GreetTest, EmptyStoreGreetsWithTimeAndDateAndStoresTheDefaults)
{
    EXPECT_EQ(greet(), (QStringList{QStringLiteral("Good Afternoon."), TimeAt1430, DateOn}));
    EXPECT_EQ(fp.store.value(QStringLiteral("Greeting")), QStringLiteral("0"));
    EXPECT_EQ(fp.store.value(QStringLiteral("TimeGreeting")), QStringLiteral("1"));
    EXPECT_EQ(fp.store.value(QStringLiteral("GreetingText")), std::nullopt);
}

TEST_F(GreetTest, GreetingChoosesTimeAndDate)
{
    const QString word = QStringLiteral("Good Afternoon.");
    const QString text = QStringLiteral("Have a nice day");
    struct Case {
        QString greeting;
        QStringList spoken;
    };
    const Case cases[] = {
        {QStringLiteral("0"), {word, TimeAt1430, DateOn, text}},
        {QStringLiteral("1"), {word, TimeAt1430, text}},
        {QStringLiteral("2"), {word, DateOn, text}},
        {QStringLiteral("3"), {word, text}},
        {QStringLiteral("7"), {word, text}},
        {QStringLiteral("-1"), {word, text}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.greeting.toStdString());
        fp.agent->calls.clear();
        fp.store.setValue(QStringLiteral("Greeting"), c.greeting);
        fp.store.setValue(QStringLiteral("GreetingText"), text);
        EXPECT_EQ(greet(), c.spoken);
    }
}

TEST_F(GreetTest, SwitchedOffSaysNothing)
{
    for (const QString& off : {QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("x")}) {
        fp.agent->calls.clear();
        fp.store.setValue(QStringLiteral("TimeGreeting"), off);
        fp.store.setValue(QStringLiteral("GreetingText"), QStringLiteral("Hello"));
        EXPECT_TRUE(greet().isEmpty()) << off.toStdString();
    }
}

TEST_F(GreetTest, AgentErrorIsReportedAndEndsTheGreeting)
{
    fp.agent->failCalls(
        QStringLiteral("Speak(") + Tags + QStringLiteral("The time"),
        platform::RuntimeError(5, QStringLiteral("Agent"), QStringLiteral("broken")));
    EXPECT_EQ(greet(), QStringList{QStringLiteral("Good Afternoon.")});
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Unknown Error"));
    EXPECT_TRUE(fp.dialogs.boxes[0].text.contains(QStringLiteral("( 12 )")));
}

} // namespace
