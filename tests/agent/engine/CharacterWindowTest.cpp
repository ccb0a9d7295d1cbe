#include "agent/runtime/CharacterWindow.h"

#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "TestCharacter.h"
#include "agent/engine/AgentEngine.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using namespace agent::runtime::testing;

constexpr int Left = 200;
constexpr int Top = 150;

// A 64 x 64 character whose only pose is a red 32 x 32 square in the middle.
acs::CharacterData squareCharacter()
{
    acs::CharacterData character = blankCharacter(64, 64);
    character.images.push_back(solidImage(32, 32, Red)); // image 5, after the five colours
    character.animations = {animation("RestPose", {frame({{5, 16, 16}})})};
    return character;
}

QImage grabScreen()
{
    return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(
        QImage::Format_RGB32);
}

// The screen once the pixel at `where` has the colour, or as it stands after five seconds.
QImage screenOnce(QPoint where, QRgb colour)
{
    QImage screen;
    (void)QTest::qWaitFor([&] { return (screen = grabScreen()).pixel(where) == colour; }, 5000);
    return screen;
}

TEST(CharacterWindowTest, StandsOnTheDesktopAndAnswersTheMouse)
{
    ASSERT_EQ(QGuiApplication::platformName(), "xcb");
    QTemporaryDir folder;
    RecordingEvents events;
    AgentEngine engine(std::make_unique<FakeSpeechOutput>(), std::make_unique<FakeRecognizer>());
    engine.setEventSink(&events);
    engine.Characters().Load("G", writeCharacterFile(folder, squareCharacter()));
    EngineCharacter* character = &engine.Characters().Character("G");
    character->setIdleOn(false);
    runtime::CharacterWindow* window = &character->runtime().window();
    const auto waitForEvent = [&events](const QString& event) {
        return QTest::qWaitFor([&] { return events.events.contains(event); }, 5000);
    };
    const QImage before = grabScreen();
    character->MoveTo(Left, Top);
    character->Show(true);
    ASSERT_TRUE(waitForEvent("Show G 0"));
    const QImage after = screenOnce({Left + 30, Top + 30}, rgba(Red));

    EXPECT_EQ(after.pixel(Left + 30, Top + 30), rgba(Red));
    for (const QPoint around : {QPoint(2, 2), QPoint(15, 30), QPoint(48, 48), QPoint(63, 0)}) {
        const QPoint screen = QPoint(Left, Top) + around;
        EXPECT_EQ(after.pixel(screen), before.pixel(screen))
            << "the desktop shows through at " << around.x() << "," << around.y();
    }
    EXPECT_TRUE(window->mask().contains(QPoint(20, 20)));
    EXPECT_FALSE(window->mask().contains(QPoint(5, 5))) << "no input on transparent pixels";

    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(30, 30));
    ASSERT_TRUE(waitForEvent("Click G 1 0"));

    QTest::mousePress(window, Qt::LeftButton, {}, QPoint(30, 30));
    const QPoint start = window->mapToGlobal(QPoint(30, 30));
    for (const QPoint step : {QPoint(10, 5), QPoint(40, 25)}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(30, 30) + step, QPointF(start + step),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(window, &move);
    }
    QTest::mouseRelease(window, Qt::LeftButton, {}, window->mapFromGlobal(start + QPoint(40, 25)));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->pos() == QPoint(Left + 40, Top + 25); }));
    EXPECT_EQ(events.events.count("Click G 1 0"), 1) << "a drag is not a click";

    QTest::mouseClick(window, Qt::RightButton, {}, QPoint(30, 30));
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(waitForEvent("Click G 2 0"));
    QTest::mouseClick(menu, Qt::LeftButton, {},
                      menu->actionGeometry(menu->actions().last()).center());
    ASSERT_TRUE(waitForEvent("Hide G 1")) << "Hide picked by the user";
    const QPoint middle(Left + 70, Top + 55);
    EXPECT_EQ(screenOnce(middle, before.pixel(middle)).pixel(middle), before.pixel(middle))
        << "the desktop is back where the character stood";
}
