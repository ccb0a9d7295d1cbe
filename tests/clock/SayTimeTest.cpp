#include "clock/SayTime.h"

#include "character/CharacterFixture.h"

#include <QCheckBox>
#include <gtest/gtest.h>

namespace
{

struct SayTimeTest : CharacterFixture, ::testing::Test {
};

TEST_F(SayTimeTest, SentenceForEveryShapeOfTheClock)
{
    struct Case {
        int hour;
        int minute;
        bool hideBalloon;
        QString text;
    };
    const Case cases[] = {
        {14, 25, false, QStringLiteral("The time now is 2:25.")},
        {9, 45, false, QStringLiteral("The time now is 9:45.")},
        {12, 10, false, QStringLiteral("The time now is 12:10.")},
        {0, 30, false, QStringLiteral("The time now is 0:30.")},
        {14, 5, false, QStringLiteral("The time now is 2: \\map=\"o5\"=\"05\"\\.")},
        {9, 7, false, QStringLiteral("The time now is 9: \\map=\"o7\"=\"07\"\\.")},
        {14, 0, false, QStringLiteral("The time now is 2 O'clock")},
        {9, 0, false, QStringLiteral("The time now is 9O'clock")},
        {12, 0, false, QStringLiteral("The time now is 12O'clock")},
        {0, 0, false, QStringLiteral("The time now is 0O'clock")},
        {14, 25, true, QStringLiteral("The time now is 2:25.")},
        {14, 0, true, QStringLiteral("The time now is 2 O'clock")},
        {9, 0, true, QStringLiteral("The time now is 9O'clock")},
        {14, 5, true, QStringLiteral("\\map=\"The time now is 2:\"=\"\"\\\\map=\"o5\"=\"\"\\")},
        {9, 7, true, QStringLiteral("\\map=\"The time now is 9:\"=\"\"\\\\map=\"o7\"=\"\"\\")},
        // Around the edges of the three shapes and of the hour.
        {12, 30, false, QStringLiteral("The time now is 12:30.")},
        {13, 10, false, QStringLiteral("The time now is 1:10.")},
        {13, 9, false, QStringLiteral("The time now is 1: \\map=\"o9\"=\"09\"\\.")},
        {23, 1, false, QStringLiteral("The time now is 11: \\map=\"o1\"=\"01\"\\.")},
        {13, 0, false, QStringLiteral("The time now is 1 O'clock")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1:%2 hidden %3")
                         .arg(c.hour)
                         .arg(c.minute)
                         .arg(c.hideBalloon)
                         .toStdString());
        fp.agent->calls.clear();
        fp.clock.now = QDateTime(QDate(2026, 3, 4), QTime(c.hour, c.minute, 59));
        form().chkBalloon->setChecked(c.hideBalloon);
        SayTime(app);
        // SayText wraps a line in its own balloon tag unless the sentence carries tags of its own.
        const bool ownTags = c.hideBalloon && c.minute > 0 && c.minute < 10;
        const QString line = c.hideBalloon && !ownTags ? Tags + QStringLiteral("\\map=\"") +
                                                             c.text + QStringLiteral("\"=\"\"\\")
                                                       : Tags + c.text;
        EXPECT_EQ(fp.agent->calls, QStringList{QStringLiteral("Speak(") + line + QLatin1Char(')')});
        EXPECT_EQ(form().chkBalloon->isChecked(), c.hideBalloon);
    }
}

} // namespace
