#include "settings/LoadSettings.h"

#include "core/App.h"
#include "core/Conversions.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"
#include "startup/Main.h"
#include "startup/Wiring.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QSlider>
#include <gtest/gtest.h>

using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

const QString Pip = QStringLiteral("/chars/pip.acs");
// The screen of the fakes: 1024 x 768 pixels at 15 twips per pixel.
constexpr int ScreenWidth = 15360;
constexpr int ScreenHeight = 11520;

// One run of the program up to LoadSettings, with the character file already chosen.
struct SettingsRun {
    fakes::FakePlatform fp;
    App app{fp.platform};

    SettingsRun() { fp.store.setValue(QStringLiteral("Character"), Pip); }

    // The main window and its control as Main leaves them before LoadSettings.
    void loadSettings()
    {
        app.AppPath = QStringLiteral("/data/quorl");
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        WireProgram(app);
        LoadSettings(app);
    }

    frmMain& form() { return *app.MainForm; }
    QString stored(const char* name) const
    {
        return fp.store.value(QLatin1String(name)).value_or(QStringLiteral("<missing>"));
    }
};

struct LoadSettingsTest : SettingsRun, ::testing::Test {
};

TEST_F(LoadSettingsTest, FirstRunOnAnEmptyStore)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    fp.dialogs.files = {Pip};
    Main(app);
    frmMain& f = *app.MainForm;

    EXPECT_EQ(fp.store.value(QStringLiteral("WinX")), QString::number(f.LeftTwips()));
    EXPECT_EQ(fp.store.value(QStringLiteral("WinY")), QString::number(f.TopTwips()));
    // Centred with the size it is shown at.
    EXPECT_NEAR(f.TopTwips(), (ScreenHeight - f.HeightTwips()) / 2, 15);
    EXPECT_NEAR(f.LeftTwips(), (ScreenWidth - f.WidthTwips()) / 2, 15);

    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    const fakes::Box& box = fp.dialogs.boxes[0];
    EXPECT_EQ(box.icon, BoxIcon::Information);
    EXPECT_EQ(box.buttons, BoxButtons::OK);
    EXPECT_EQ(box.title, QStringLiteral("Please select a character.."));
    EXPECT_EQ(box.text, QStringLiteral("This is your first time to run Quorl. Please select a "
                                       "character to be used."));
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 1u);
    EXPECT_EQ(fp.dialogs.fileRequests[0].title, QStringLiteral("Open Character.."));

    EXPECT_EQ(fp.store.value(QStringLiteral("Character")), Pip);
    EXPECT_EQ(fp.store.value(QStringLiteral("Pitch")), QStringLiteral("120"));
    EXPECT_EQ(fp.store.value(QStringLiteral("Speed")), QStringLiteral("160"));
    EXPECT_EQ(fp.store.value(QStringLiteral("Volume")), QStringLiteral("65535"));
    EXPECT_EQ(fp.store.value(QStringLiteral("X")), QStringLiteral("0"));
    EXPECT_EQ(fp.store.value(QStringLiteral("Y")), QStringLiteral("0"));
    EXPECT_TRUE(fp.tray.shown);
    EXPECT_TRUE(f.isVisible());

    const QString tags = QStringLiteral("\\chr=\"normal\"\\\\pit=120\\\\spd=160\\\\vol=65535\\");
    EXPECT_EQ(fp.agent->spoken(),
              (QStringList{tags + QStringLiteral("Good Afternoon."),
                           tags + QStringLiteral("The time now is 2:25."),
                           tags + QStringLiteral("Today is Sunday. 22nd of November, 2026.")}));
}

TEST_F(LoadSettingsTest, TopEdge)
{
    struct Case {
        const char* name;
        std::optional<QString> winY;
        bool centred;
    };
    const Case cases[] = {
        {"missing", std::nullopt, true},
        {"zero", QStringLiteral("0"), true},
        {"negative", QStringLiteral("-15"), true},
        {"beyond the screen", QStringLiteral("11505"), true},
        {"no number", QStringLiteral("top"), true},
        {"on the screen", QStringLiteral("300"), false},
        {"with a fraction", QStringLiteral("450.5"), false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        SettingsRun t;
        if (c.winY)
            t.fp.store.setValue(QStringLiteral("WinY"), *c.winY);
        t.loadSettings();
        const int top = t.form().TopTwips();
        if (c.centred) {
            EXPECT_NEAR(top, (ScreenHeight - t.form().HeightTwips()) / 2, 15);
            EXPECT_EQ(t.fp.store.value(QStringLiteral("WinY")), QString::number(top));
        } else {
            EXPECT_NEAR(top, int(Conversions::Val(*c.winY)), 15);
            EXPECT_EQ(t.fp.store.value(QStringLiteral("WinY")), c.winY) << "rewritten";
        }
    }
}

TEST_F(LoadSettingsTest, LeftEdgeBeyondTheScreenIsCentredAndReplaced)
{
    fp.store.setValue(QStringLiteral("WinX"), QStringLiteral("20000"));
    fp.store.setValue(QStringLiteral("WinY"), QStringLiteral("600"));
    loadSettings();
    EXPECT_NE(stored("WinX"), QStringLiteral("20000"));
    EXPECT_EQ(stored("WinX"), QString::number(form().LeftTwips()));
    EXPECT_GT(form().LeftTwips(), 0);
    EXPECT_EQ(stored("WinY"), QStringLiteral("600"));
}

TEST_F(LoadSettingsTest, VoicePanelEndsAsStored)
{
    for (const char* view : {"True", "False", "0"}) {
        SCOPED_TRACE(view);
        SettingsRun t;
        t.fp.store.setValue(QStringLiteral("ViewVoiceSettings"), QLatin1String(view));
        t.loadSettings();
        const bool shown = QLatin1String(view) == QLatin1String("True");
        EXPECT_EQ(t.form().mnuViewVoice->isChecked(), shown);
        EXPECT_EQ(t.form().Frame1->isHidden(), !shown);
    }
}

TEST_F(LoadSettingsTest, ChecksAndTextsOfTheWindow)
{
    fp.store.setValue(QStringLiteral("SaveSettings"), QStringLiteral("true"));
    fp.store.setValue(QStringLiteral("Whisper"), QStringLiteral("1"));
    fp.store.setValue(QStringLiteral("Balloon"), QStringLiteral("2"));
    fp.store.setValue(QStringLiteral("Ignore"), QStringLiteral("0"));
    fp.store.setValue(QStringLiteral("IgnoreText"), QStringLiteral("#"));
    fp.store.setValue(QStringLiteral("Animate"), QStringLiteral("1"));
    loadSettings();
    EXPECT_FALSE(form().mnuFileSave->isChecked()) << "only \"True\" exactly is true";
    EXPECT_TRUE(form().chkWhisper->isChecked());
    EXPECT_FALSE(form().chkBalloon->isChecked());
    EXPECT_FALSE(form().chkIgnore->isChecked());
    EXPECT_EQ(form().txtIgnore->text(), QStringLiteral("#"));
    EXPECT_EQ(form().txtIgnore1->text(), QStringLiteral("*"));
    EXPECT_FALSE(form().txtIgnore->isEnabled());
    EXPECT_FALSE(form().txtIgnore1->isEnabled());
    EXPECT_EQ(app.AnimateRead, QStringLiteral("1"));
}

TEST_F(LoadSettingsTest, DefaultsAreStored)
{
    loadSettings();
    const std::pair<const char*, const char*> defaults[] = {
        {"SaveSettings", "True"}, {"ViewVoiceSettings", "True"},
        {"Whisper", "0"},         {"Balloon", "0"},
        {"Ignore", "1"},          {"IgnoreText", ">"},
        {"IgnoreText1", "*"},     {"Animate", "0"},
        {"Top", "False"},         {"StartMinimized", "1"}};
    for (const auto& [name, value] : defaults)
        EXPECT_EQ(stored(name), QLatin1String(value)) << name;
    EXPECT_TRUE(form().mnuFileSave->isChecked());
    EXPECT_TRUE(form().chkIgnore->isChecked());
    EXPECT_TRUE(form().txtIgnore->isEnabled());
    EXPECT_EQ(app.ModalOpen, 0);
}

TEST_F(LoadSettingsTest, BareFileNameIsLookedForInTheDataFolder)
{
    fp.store.setValue(QStringLiteral("Character"), QStringLiteral("pip.acs"));
    loadSettings();
    EXPECT_TRUE(fp.agent->calls.contains(QStringLiteral("Load(G,/data/quorl/pip.acs)")));
    EXPECT_EQ(stored("Character"), QStringLiteral("/data/quorl/pip.acs"));
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(LoadSettingsTest, StoredVoiceWinsOverTheCharacters)
{
    fp.store.setValue(QStringLiteral("Pitch"), QStringLiteral("200"));
    fp.store.setValue(QStringLiteral("Speed"), QStringLiteral("90"));
    fp.store.setValue(QStringLiteral("Volume"), QStringLiteral("3000"));
    loadSettings();
    EXPECT_EQ(form().sdrPitch->value(), 200);
    EXPECT_EQ(form().sdrSpeed->value(), 90);
    EXPECT_EQ(form().sdrVolume->value(), 3000);
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=200\\"));
    EXPECT_EQ(app.SpeedTag, QStringLiteral("\\spd=90\\"));
    EXPECT_EQ(app.VolumeTag, QStringLiteral("\\vol=3000\\"));
    EXPECT_EQ(stored("Pitch"), QStringLiteral("200"));
    EXPECT_EQ(stored("Speed"), QStringLiteral("90"));
}

TEST_F(LoadSettingsTest, OneMissingVoiceValueBringsBackAllDefaults)
{
    // The defaults for the missing speed reset the sliders read before it.
    fp.store.setValue(QStringLiteral("Pitch"), QStringLiteral("200"));
    fp.store.setValue(QStringLiteral("Volume"), QStringLiteral("3000"));
    loadSettings();
    EXPECT_EQ(form().sdrPitch->value(), 120);
    EXPECT_EQ(form().sdrSpeed->value(), 160);
    EXPECT_EQ(form().sdrVolume->value(), 3000);
    EXPECT_EQ(stored("Pitch"), QStringLiteral("200"));
    EXPECT_EQ(stored("Speed"), QStringLiteral("160"));
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=120\\"));
}

TEST_F(LoadSettingsTest, TopmostAndStartVisibility)
{
    struct Case {
        const char* top;
        const char* startMinimized;
        bool onTop;
        bool visible;
    };
    for (const Case& c : {Case{"True", "1", true, true}, Case{"0", "1", false, true},
                          Case{"False", "0", false, false}, Case{"True", "0", true, false}}) {
        SCOPED_TRACE(std::string(c.top) + "/" + c.startMinimized);
        SettingsRun t;
        t.fp.store.setValue(QStringLiteral("Top"), QLatin1String(c.top));
        t.fp.store.setValue(QStringLiteral("StartMinimized"), QLatin1String(c.startMinimized));
        t.loadSettings();
        EXPECT_EQ(t.app.OnTop, c.onTop);
        EXPECT_EQ(t.form().mnuViewTop->isChecked(), c.onTop);
        EXPECT_EQ(t.form().isVisible(), c.visible);
        EXPECT_TRUE(t.fp.tray.shown);
    }
}

TEST_F(LoadSettingsTest, WithoutATrayAHiddenStartIsAMinimizedOne)
{
    fp.tray.available = false;
    fp.store.setValue(QStringLiteral("StartMinimized"), QStringLiteral("0"));
    loadSettings();
    EXPECT_TRUE(form().isVisible());
    EXPECT_TRUE(form().isMinimized()) << "the window must stay reachable from the task bar";
    EXPECT_EQ(fp.dialogs.boxes.size(), 1u) << "the user is told about the missing tray";
}

} // namespace
