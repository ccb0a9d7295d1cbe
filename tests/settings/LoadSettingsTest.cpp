#include "settings/LoadSettings.h"

#include "core/Conversions.h"
#include "core/RegFunctions.h"
#include "fakes/LoadedProgram.h"
#include "startup/Main.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QSlider>
#include <gtest/gtest.h>

// The screen of the fakes: 1024 x 768 pixels at 15 twips per pixel.
constexpr int ScreenWidth = 15360, ScreenHeight = 11520;

// One run of the program up to LoadSettings, with the character file already chosen.
struct SettingsRun : fakes::ProgramWindow {
    // Sets the stored values, then runs LoadSettings as Main does after creating the window.
    SettingsRun(const std::map<QString, QString>& values = {}, bool tray = true)
    {
        fp.tray.available = tray;
        fp.store.setValue("Character", "/chars/pip.acs");
        for (const auto& [name, value] : values)
            fp.store.setValue(name, value);
        app.AppPath = "/data/quorl";
        LoadSettings(app);
    }
    QString stored(const QString& name) const { return fp.store.value(name).value_or("<missing>"); }
    QString tags() const { return app.PitchTag + app.SpeedTag + app.VolumeTag; }
};

TEST(LoadSettingsTest, FirstRunAsksForACharacter)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    fp.dialogs.files = {"/chars/pip.acs"};
    Main(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    const fakes::Box& box = fp.dialogs.boxes[0];
    EXPECT_EQ(
        std::tuple(box.icon, box.buttons, box.title, box.text),
        std::tuple(platform::BoxIcon::Information, platform::BoxButtons::OK,
                   "Please select a character..",
                   "This is your first time to run Quorl. Please select a character to be used."));
    EXPECT_EQ(fp.dialogs.fileRequests.size(), 1u);
}

TEST(LoadSettingsTest, WindowPositionOffTheScreenIsCentredAndReplaced)
{
    const struct {
        const char* name;
        std::optional<QString> winY;
        bool centred;
    } cases[] = {
        {"missing", std::nullopt, true},
        {"negative", "-15", true},
        {"beyond the screen", "11505", true},
        {"on the screen", "300", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const SettingsRun t(c.winY ? std::map<QString, QString>{{"WinY", *c.winY}}
                                   : std::map<QString, QString>{});
        const int top = t.app.MainForm->TopTwips();
        if (c.centred) {
            EXPECT_NEAR(top, (ScreenHeight - t.app.MainForm->HeightTwips()) / 2, 15);
            EXPECT_EQ(t.stored("WinY"), QString::number(top));
        } else {
            EXPECT_NEAR(top, int(Conversions::Val(*c.winY)), 15);
            EXPECT_EQ(t.stored("WinY"), *c.winY) << "rewritten";
        }
    }
    const SettingsRun t({{"WinX", "20000"}, {"WinY", "600"}});
    EXPECT_EQ(t.stored("WinX"), QString::number(t.app.MainForm->LeftTwips()));
    EXPECT_GT(t.app.MainForm->LeftTwips(), 0);
    EXPECT_LT(t.app.MainForm->LeftTwips(), ScreenWidth / 2);
}

TEST(LoadSettingsTest, DefaultsAreStoredAndEachValueIsApplied)
{
    const SettingsRun t;
    const std::pair<QString, QString> defaults[] = {
        {"SaveSettings", "True"}, {"ViewVoiceSettings", "True"},
        {"Whisper", "0"},         {"Balloon", "0"},
        {"Ignore", "1"},          {"IgnoreText", ">"},
        {"IgnoreText1", "*"},     {"Animate", "0"},
        {"Top", "False"},         {"StartMinimized", "1"}};
    for (const auto& [name, value] : defaults)
        EXPECT_EQ(t.stored(name), value) << name.toStdString();
    EXPECT_TRUE(t.app.MainForm->mnuFileSave->isChecked());
    EXPECT_TRUE(t.app.MainForm->chkIgnore->isChecked());
    EXPECT_TRUE(t.app.MainForm->txtIgnore->isEnabled());
    EXPECT_EQ(t.app.ModalOpen, 0);

    const std::map<QString, QString> values = {
        {"SaveSettings", "true"}, {"Whisper", "1"},    {"Balloon", "2"},
        {"Ignore", "0"},          {"IgnoreText", "#"}, {"Animate", "1"},
        {"Pitch", "200"},         {"Speed", "90"},     {"Volume", "3000"}};
    const SettingsRun u(values);
    EXPECT_TRUE(u.fp.dialogs.boxes.empty());
    const frmMain& f = *u.app.MainForm;
    EXPECT_FALSE(f.mnuFileSave->isChecked()) << "only \"True\" exactly is true";
    EXPECT_TRUE(f.chkWhisper->isChecked());
    EXPECT_FALSE(f.chkBalloon->isChecked());
    EXPECT_FALSE(f.chkIgnore->isChecked());
    EXPECT_EQ(f.txtIgnore->text(), "#");
    EXPECT_EQ(f.txtIgnore1->text(), "*");
    EXPECT_FALSE(f.txtIgnore->isEnabled());
    EXPECT_FALSE(f.txtIgnore1->isEnabled());
    EXPECT_EQ(u.app.AnimateRead, "1");
    // The stored voice wins over the character's.
    EXPECT_EQ(u.tags(), R"(\pit=200\\spd=90\\vol=3000\)");

    for (const QString view : {"True", "False", "0"}) {
        const SettingsRun v(std::map<QString, QString>{{"ViewVoiceSettings", view}});
        EXPECT_EQ(v.app.MainForm->mnuViewVoice->isChecked(), view == "True");
    }

    // A missing voice value resets the sliders read before it.
    const SettingsRun some({{"Pitch", "200"}, {"Volume", "3000"}});
    EXPECT_EQ(some.app.MainForm->sdrPitch->value(), 120);
    EXPECT_EQ(some.app.MainForm->sdrSpeed->value(), 160);
    EXPECT_EQ(some.app.MainForm->sdrVolume->value(), 3000);
    EXPECT_EQ(some.stored("Pitch"), "200");
    EXPECT_EQ(some.stored("Speed"), "160");
    EXPECT_EQ(some.tags(), R"(\pit=120\\spd=160\\vol=3000\)");
}

// Without a tray a hidden start is a minimized one, so that the window stays reachable from the
// task bar.
TEST(LoadSettingsTest, TopmostAndStartVisibility)
{
    const struct {
        QString top, startMinimized;
        bool tray, onTop, visible;
    } cases[] = {{"True", "1", true, true, true},
                 {"False", "0", true, false, false},
                 {"0", "0", false, false, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(
            (c.top + "/" + c.startMinimized + (c.tray ? "" : " without a tray")).toStdString());
        const SettingsRun t({{"Top", c.top}, {"StartMinimized", c.startMinimized}}, c.tray);
        EXPECT_EQ(t.app.OnTop, c.onTop);
        EXPECT_EQ(t.app.MainForm->mnuViewTop->isChecked(), c.onTop);
        EXPECT_EQ(t.app.MainForm->isVisible(), c.visible);
        EXPECT_EQ(t.app.MainForm->isMinimized(), !c.tray);
    }
}

using namespace RegFunctions;

TEST(RegFunctionsTest, AnEmptyValueIsReplacedAndDataEndsAtANulOrIsSixteenBits)
{
    fakes::FakeStore store;
    const Settings settings{store};
    store.setValue("Greeting", QString());
    EXPECT_EQ(settings.Get("Greeting", "0"), "0");
    EXPECT_EQ(store.value("Greeting"), "0");

    store.setRaw("B", platform::RegistryStore::String, QByteArray("\0cd", 3));
    EXPECT_EQ(settings.ReadText("B"), QString());
    store.setRaw("Odd", platform::RegistryStore::Binary, QByteArray("\xfe\xff\x07", 3));
    const KeyValue value = settings.Read("Odd");
    ASSERT_TRUE(std::holds_alternative<std::int16_t>(value));
    EXPECT_EQ(std::get<std::int16_t>(value), -2);
    EXPECT_EQ(ToString(value), "-2");
}
