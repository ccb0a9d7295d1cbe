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
        character().top = 340;
        app.PitchTag = QStringLiteral("\\pit=120\\");
        app.SpeedTag = QStringLiteral("\\spd=160\\");
        fp.agent->calls.clear();
    }

    // Runs the route; true when the program ended.
    bool run(const std::function<void()>& route)
    {
        try {
            route();
        } catch (const fakes::ProgramEnded&) {
            return true;
        }
        return false;
    }
};

struct ClosingTest : ::testing::Test, Running {
};

TEST_F(ClosingTest, EveryOrderlyEndSavesOnlyWhenAskedAndRemovesTheIcon)
{
    struct Route {
        const char* name;
        std::function<void(Running&)> run;
    };
    const Route routes[] = {
        {"Exit", [](Running& t) { t.form().mnuFileExit->trigger(); }},
        {"session end", [](Running& t) { t.fp.endRequests.sessionEnd(); }},
    };
    for (const Route& route : routes) {
        for (const bool save : {true, false}) {
            SCOPED_TRACE(std::string(route.name) + (save ? " saving" : " not saving"));
            Running t;
            t.form().mnuFileSave->setChecked(save);
            EXPECT_TRUE(t.run([&] { route.run(t); }));
            EXPECT_EQ(t.fp.process.ends, 1);
            EXPECT_FALSE(t.fp.tray.shown);
            const QStringList written = save ? WindowValues + QStringList{"Y", "X", "SaveSettings"}
                                             : QStringList{"SaveSettings"};
            EXPECT_EQ(t.fp.store.writes, written);
            EXPECT_EQ(t.fp.store.value(QStringLiteral("SaveSettings")),
                      save ? QStringLiteral("True") : QStringLiteral("False"));
            if (save) {
                EXPECT_EQ(t.fp.store.value(QStringLiteral("X")), QStringLiteral("210"));
                EXPECT_EQ(t.fp.store.value(QStringLiteral("Y")), QStringLiteral("340"));
            }
        }
    }
}

TEST_F(ClosingTest, SaveNowKeepsTheIconAndAHiddenCharacterKeepsItsPlace)
{
    form().mnuFileSave->setChecked(false);
    form().mnuFileSavenow->trigger();
    EXPECT_TRUE(fp.tray.shown);
    EXPECT_EQ(fp.process.ends, 0);
    EXPECT_EQ(fp.store.writes, (WindowValues + QStringList{"Y", "X", "SaveSettings"}));
    EXPECT_EQ(fp.store.value(QStringLiteral("SaveSettings")), QStringLiteral("False"));

    fp.store.writes.clear();
    form().mnuFileSave->setChecked(true);
    character().visible = false;
    character().left = 999;
    EXPECT_TRUE(run([&] { form().mnuFileExit->trigger(); }));
    EXPECT_EQ(fp.store.writes, (WindowValues + QStringList{"SaveSettings"}));
    EXPECT_EQ(fp.store.value(QStringLiteral("X")), QStringLiteral("210"));
}

TEST_F(ClosingTest, ACharactersVoiceBeyondTheSlidersIsSavedWhole)
{
    app.PitchTag = QStringLiteral("\\pit=30\\");
    form().sdrPitch->setValue(50);
    form().mnuFileSavenow->trigger();
    EXPECT_EQ(fp.store.value(QStringLiteral("Pitch")), QStringLiteral("30"));
}

TEST_F(ClosingTest, CloseBoxHidesTheWindowOrMinimizesItWithoutATray)
{
    for (const bool tray : {true, false}) {
        SCOPED_TRACE(tray ? "tray" : "no tray");
        Running t;
        t.fp.tray.available = tray;
        EXPECT_FALSE(t.form().close());
        EXPECT_EQ(t.fp.process.ends, 0);
        EXPECT_EQ(t.form().isVisible(), !tray);
        EXPECT_EQ(t.form().isMinimized(), !tray);
        t.form().showNormal();
        t.form().Command1->click();
        EXPECT_EQ(t.form().isVisible(), !tray);
        EXPECT_EQ(t.form().isMinimized(), !tray);
    }
}
