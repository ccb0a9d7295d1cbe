#include "FakeSpeechOutput.h"
#include "agent/acs/AcsFile.h"
#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterRuntime.h"
#include "agent/runtime/CharacterWindow.h"

#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::runtime;
using namespace agent::runtime::testing;

TEST(BalloonPlacementTest, InTheCornersTheBalloonStaysOnScreenAndPointsAtTheCharacter)
{
    QFile file(QStringLiteral(BUNDLED_CHARACTER));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << BUNDLED_CHARACTER;
    const auto data = std::make_shared<const acs::CharacterData>(acs::readAcs(file.readAll()));
    ASSERT_TRUE(data->balloon);
    const acs::BalloonInfo& style = *data->balloon;
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();

    const QString sentence = QStringLiteral(
        "Good morning! Today is Monday, the twenty-third of November, and the sky over the city "
        "is clear and bright. You have three reminders for today: call the dentist before noon, "
        "buy fresh bread on the way home, and water the plants on the balcony.");
    // Top left, then bottom right: the balloon below, then above, pushed in from either side.
    for (const bool bottom : {false, true}) {
        SCOPED_TRACE(bottom ? "bottom-right" : "top-left");
        const QPoint topLeft =
            bottom ? screen.bottomRight() + QPoint(1, 1) - QPoint(data->width, data->height)
                   : screen.topLeft();
        FakeSpeechOutput speech(25);
        CharacterRuntime runtime(data, speech, {}, {}, 7);
        runtime.setIdleOn(false);
        runtime.moveTo(topLeft);
        runtime.show(true);
        runtime.speak(sentence);
        BalloonWindow& balloon = runtime.balloon();
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return balloon.isVisible() && balloon.visibleText().contains(u"dentist"_qs); },
            20000));

        const QRect character = runtime.window().geometry();
        const QRect shape = balloon.geometry();
        const QPoint tip = balloon.tailTip();
        EXPECT_TRUE(screen.contains(shape)) << "wholly on screen";
        EXPECT_EQ(shape.bottom() < character.top(), bottom);
        EXPECT_TRUE(tip.x() >= character.left() && tip.x() <= character.right()) << tip.x();
        EXPECT_LE(std::abs(tip.y() - (bottom ? character.top() : character.bottom())), 4)
            << "the tail points at the character";

        const QImage picture = balloon.grab().toImage();
        const QPoint local = tip - shape.topLeft() + QPoint(0, bottom ? -4 : 4);
        EXPECT_GT(qAlpha(picture.pixel(local)), 0) << "the tail reaches towards its tip";
        EXPECT_EQ(picture.pixel(3, picture.height() / 2), style.background.rgb());
        EXPECT_EQ(picture.pixel(0, picture.height() / 2), style.border.rgb());
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "see-through around the shape";
    }
}
