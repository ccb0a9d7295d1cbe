#include "agent/EngineSettings.h"
#include "agent/listen/ListeningTip.h"
#include "agent/listen/PocketSphinxRecognizer.h"
#include "agent/listen/PushToTalkKey.h"
#include "agent/listen/SpeechInputSettings.h"
#include "agent/listen/SpeechPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <xcb/xcb.h>

// Last: Xlib's macros (None, Bool, Status) would break the headers above.
#include <X11/Xlib.h>

namespace agent::listen
{
namespace
{

TEST(SpeechPage, ShowsAndStoresEveryChoiceAndTheRecogniserFollows)
{
    EngineSettings::shared().clear();
    SpeechInputSettings settings;
    settings.setListeningKey(QStringLiteral("Pause"));
    PocketSphinxRecognizer recognizer;
    const std::unique_ptr<QWidget> widget(recognizer.createSettingsPage());
    auto& page = dynamic_cast<SpeechPage&>(*widget);
    EXPECT_EQ(std::tuple(page.inputEnabled()->isChecked(), page.handsFree()->isChecked(),
                         page.listeningKey()->currentData().toString()),
              std::tuple(true, false, QStringLiteral("Pause")));

    QSignalSpy changed(&EngineSettings::shared(), &EngineSettings::changed);
    page.inputEnabled()->setChecked(false);
    page.handsFree()->setChecked(true);
    page.listeningKey()->setCurrentIndex(page.listeningKey()->findData(QStringLiteral("F12")));
    page.threshold()->setValue(-3.5);
    EXPECT_EQ(changed.size(), 4);
    EXPECT_EQ(std::tuple(settings.enabled(), settings.handsFree(), settings.listeningKey(),
                         settings.threshold(), recognizer.threshold()),
              std::tuple(false, true, QStringLiteral("F12"), -3.5, -3.5));
    EngineSettings::shared().clear();
}

TEST(ListeningTip, SaysItListensOrDidNotUnderstandAndHidesByItself)
{
    ListeningTip tip;
    tip.showListening();
    EXPECT_TRUE(tip.isVisible());
    EXPECT_EQ(tip.text(), QStringLiteral("Listening..."));
    tip.showHeard(QString());
    EXPECT_EQ(tip.text(), QStringLiteral("Not understood"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tip.isVisible(); }, 20000));
}

TEST(PushToTalkKey, HeldKeyGivesOnePressAndOneReleaseAndTakenKeysAreRefused)
{
    PushToTalkKey key;
    if (!key.grab(QStringLiteral("Scroll_Lock")))
        GTEST_SKIP() << "no X server";
    const auto send = [&key](std::uint8_t type, unsigned int keycode) {
        xcb_key_press_event_t event{};
        event.response_type = type;
        event.detail = std::uint8_t(keycode);
        key.nativeEventFilter("xcb_generic_event_t", &event, nullptr);
    };
    QSignalSpy pressed(&key, &PushToTalkKey::pressed);
    QSignalSpy released(&key, &PushToTalkKey::released);
    const unsigned int code = key.keycode();
    // Auto-repeat releases and presses again at once, twice; another key changes nothing.
    for (const int type :
         {XCB_KEY_PRESS, XCB_KEY_RELEASE, XCB_KEY_PRESS, XCB_KEY_RELEASE, XCB_KEY_PRESS})
        send(std::uint8_t(type), code);
    send(XCB_KEY_PRESS, code + 1);
    EXPECT_EQ(pressed.size(), 1);
    EXPECT_TRUE(key.isDown());
    EXPECT_FALSE(released.wait(200));
    send(XCB_KEY_RELEASE, code);
    ASSERT_TRUE(released.wait(2000));
    EXPECT_EQ(released.size(), 1);
    EXPECT_FALSE(key.isDown());

    EXPECT_FALSE(key.grab(QStringLiteral("No_Such_Key")));
    EXPECT_FALSE(key.isGrabbed());
    Display* other = XOpenDisplay(nullptr);
    ASSERT_TRUE(other);
    const KeyCode pause = XKeysymToKeycode(other, XStringToKeysym("Pause"));
    XGrabKey(other, pause, 0, DefaultRootWindow(other), False, GrabModeAsync, GrabModeAsync);
    XSync(other, False);
    EXPECT_FALSE(key.grab(QStringLiteral("Pause")));
    XCloseDisplay(other);
    EXPECT_TRUE(key.grab(QStringLiteral("Pause")));
}

} // namespace
} // namespace agent::listen
