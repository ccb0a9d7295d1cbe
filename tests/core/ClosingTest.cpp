#include "core/Closing.h"

#include "core/MainWindow.h"
#include "fakes/LoadedProgram.h"
#include "startup/Wiring.h"

#include <QAction>
#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

const QStringList WindowValues{
    "WinY", "WinX",    "Pitch",   "Speed",  "Volume",     "ViewVoiceSettings",
    "Top",  "Whisper", "Balloon", "Ignore", "IgnoreText", "IgnoreText1"};

// The loaded program as the user left it: window shown, tray icon, visible character.
struct Running : fakes::LoadedProgram {
    Running()
    {
        WatchEndRequests(app);
        CreateIcon(app);
        form().show();
        character().visible = true;
        character().left = 210;
        app.PitchTag = QStringLiteral("\\pit=120\\");
        app.SpeedTag = QStringLiteral("\\spd=160\\");
    }
};

struct ClosingTest : ::testing::Test, Running {
};

TEST_F(ClosingTest, EveryOrderlyEndSavesOnlyWhenAskedAndRemovesTheIcon)
{
    const std::pair<const char*, std::function<void(Running&)>> routes[] = {
        {"Exit", [](Running& t) { t.form().mnuFileExit->trigger(); }},
        {"session end", [](Running& t) { t.fp.endRequests.sessionEnd(); }},
    };
    for (const auto& [name, route] : routes) {
        for (const bool save : {true, false}) {
            SCOPED_TRACE(std::string(name) + (save ? " saving" : " not saving"));
            Running t;
            t.form().mnuFileSave->setChecked(save);
            EXPECT_THROW(route(t), fakes::ProgramEnded);
            EXPECT_FALSE(t.fp.tray.shown);
            const QStringList written = save ? WindowValues + QStringList{"Y", "X", "SaveSettings"}
                                             : QStringList{"SaveSettings"};
            // The values themselves are checked end to end by closing.sh.
            EXPECT_EQ(t.fp.store.writes, written);
        }
    }
}

// A character's voice beyond the sliders is saved whole.
TEST_F(ClosingTest, SaveNowKeepsTheIconAndTheVoiceAndAHiddenCharacterKeepsItsPlace)
{
    app.PitchTag = QStringLiteral("\\pit=30\\");
    form().sdrPitch->setValue(50);
    form().mnuFileSave->setChecked(false);
    form().mnuFileSavenow->trigger();
    EXPECT_TRUE(fp.tray.shown);
    EXPECT_EQ(fp.store.writes, (WindowValues + QStringList{"Y", "X", "SaveSettings"}));
    EXPECT_EQ(fp.store.value(QStringLiteral("SaveSettings")), QStringLiteral("False"));
    EXPECT_EQ(fp.store.value(QStringLiteral("Pitch")), QStringLiteral("30"));

    fp.store.writes.clear();
    form().mnuFileSave->setChecked(true);
    character().visible = false;
    character().left = 999;
    EXPECT_THROW(form().mnuFileExit->trigger(), fakes::ProgramEnded);
    EXPECT_EQ(fp.store.writes, (WindowValues + QStringList{"SaveSettings"}));
    EXPECT_EQ(fp.store.value(QStringLiteral("X")), QStringLiteral("210"));
}

TEST_F(ClosingTest, CloseBoxHidesTheWindowOrMinimizesItWithoutATray)
{
    for (const bool tray : {true, false}) {
        SCOPED_TRACE(tray ? "tray" : "no tray");
        Running t;
        t.fp.tray.available = tray;
        const auto shown = [&] { return std::pair(t.form().isVisible(), t.form().isMinimized()); };
        EXPECT_FALSE(t.form().close());
        EXPECT_EQ(shown(), std::pair(!tray, !tray));
        t.form().showNormal();
        t.form().Command1->click();
        EXPECT_EQ(shown(), std::pair(!tray, !tray));
    }
}
