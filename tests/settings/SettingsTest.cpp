#include "apps/AppsFile.h"
#include "character/LoadCharacter.h"
#include "core/RegFunctions.h"
#include "fakes/Accessibility.h"
#include "fakes/CharacterFixture.h"
#include "settings/LoadSettings.h"
#include "settings/frmOptions.h"
#include "startup/Main.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using Boxes = std::vector<fakes::Box>;

const QString Pip = QStringLiteral("/chars/pip.acs");

// The dialog's error boxes are all critical with an OK button.
fakes::Box Error(const QString& title, const QString& text)
{
    return {platform::BoxIcon::Critical, platform::BoxButtons::OK, title, text};
}

QString Stored(const fakes::FakePlatform& fp, const QString& name)
{
    return fp.store.value(name).value_or("<missing>");
}

// The main window after start-up with the character Pip loaded from the store, its command
// list built and one application on it.
struct frmOptionsTest : ::testing::Test, fakes::ProgramWindow {
    frmOptionsTest()
    {
        app.AppPath = dir.path();
        WriteAppsFile(AppsFilePath(app.AppPath), {{"Editor", "Open the editor", "gedit", 1, 1}});
        fp.store.setValue("Character", Pip);
        QString file = Pip;
        LoadCharacter(app, true, file, false);
        app.AnimateRead = "0";
        fp.agent->calls.clear();
        fp.store.writes.clear();
    }

    // Opens the dialog on a tab; act runs while it is up, as the user would, and Cancel closes
    // what act leaves open.
    void open(int tab, const std::function<void(frmOptions&)>& act)
    {
        fp.onModal = [&](QDialog& dialog) {
            auto& form = static_cast<frmOptions&>(dialog);
            form.show();
            act(form);
            if (form.isVisible())
                form.cmdCancel->click();
        };
        ShowOptions(app, tab);
    }

    QTemporaryDir dir;
};

TEST_F(frmOptionsTest, LoadingShowsTheStoreAndStoresTheMissingDefaultsInOrder)
{
    fakes::ProgramWindow bare;
    bare.app.AnimateRead = "1";
    bare.fp.onModal = [&](QDialog& dialog) {
        auto& form = static_cast<frmOptions&>(dialog);
        EXPECT_EQ(
            QStringList({form.txtTime->text(), form.txtRemind->text(), form.txtGreet->text()}),
            QStringList({"What is the time?", "You have a reminder", " "}));
        EXPECT_EQ(std::tuple(form.chkAnimate->isChecked(), form.chkClick->isChecked(),
                             form.chkClick1->isChecked(), form.optGreet[0]->isChecked()),
                  std::tuple(true, false, true, true));
        EXPECT_EQ(bare.app.ModalOpen, 1);
        form.cmdCancel->click();
    };
    ShowOptions(bare.app, 0);

    EXPECT_EQ(
        bare.fp.store.writes,
        (QStringList{"TimeCmd",      "DateCmd",        "ShutCmd",   "ClipCmd",  "NotesCmd",
                     "RestartCmd",   "ReminderText",   "Click",     "Click1",   "IdleAnimations",
                     "SoundEffects", "StartMinimized", "Show",      "Splash",   "Greeting",
                     "TimeGreeting", "GreetingText",   "ShutDown",  "EnTime",   "EnDate",
                     "EnReadClip",   "EnNotes",        "EnRestart", "NoteDate", "NoteTime",
                     "ShowIfHidden", "ReadNote"}));
    EXPECT_EQ(bare.app.ModalOpen, 0);
}

TEST_F(frmOptionsTest, AGreetingOutOfRangeIsReportedAndLoadingGoesOn)
{
    fp.store.setValue("Greeting", "7");
    fp.store.setValue("ReadNote", "0");
    open(0, [&](frmOptions& form) {
        for (QRadioButton* option : form.optGreet)
            EXPECT_FALSE(option->isChecked());
        EXPECT_EQ(form.GreetOption, 7);
        EXPECT_FALSE(form.chkReadNote->isChecked());
    });
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Unknown Error"});
    EXPECT_TRUE(fp.dialogs.boxes[0].text.contains("( Unknown ( 7 ) 340"));
}

// An empty box stops OK before anything is stored or applied: the character box first, then the
// voice boxes in the order date, time, shut down, notes, clip board, restart.
TEST_F(frmOptionsTest, AnEmptyBoxStopsOkWithItsFocusAndBox)
{
    using F = frmOptions;
    const fakes::Box voice = Error("Voice Command Required", "Voice commands cannot be empty");
    const fakes::Box character =
        Error("Character not specified", "Please specify a character file (ACS file)");
    const std::tuple<std::vector<QLineEdit * F::*>, QLineEdit * F::*, fakes::Box, int> cases[] = {
        {{&F::txtChar, &F::txtTime}, &F::txtChar, character, 2},
        {{&F::txtRestart}, &F::txtRestart, voice, 3},
        {{&F::txtTime, &F::txtDate}, &F::txtDate, voice, 3},
        {{&F::txtClip, &F::txtNotes, &F::txtRestart}, &F::txtNotes, voice, 3},
    };
    for (const auto& [emptied, focused, box, tab] : cases) {
        SCOPED_TRACE(box.title.toStdString() + std::to_string(emptied.size()));
        fp.dialogs.boxes.clear();
        open(2, [&](frmOptions& form) {
            fp.store.writes.clear();
            fp.agent->calls.clear();
            for (auto emptiedBox : emptied)
                (form.*emptiedBox)->clear();
            form.cmdOK->click();
            EXPECT_EQ(fp.dialogs.boxes, Boxes{box});
            EXPECT_EQ(form.SSTab1->currentIndex(), tab);
            EXPECT_EQ(form.focusWidget(), form.*focused);
            EXPECT_TRUE(form.isVisible());
            EXPECT_TRUE(fp.store.writes.isEmpty());
            EXPECT_TRUE(fp.agent->calls.isEmpty()) << fp.agent->calls.join(' ').toStdString();
        });
    }
}

// Cancel (Escape) keeps the store, the character and its commands as they were.
TEST_F(frmOptionsTest, OkStoresOneChangeOnEachTabInItsFormAndCancelNothing)
{
    const auto change = [](frmOptions& form) {
        form.chkClick->click();
        form.SSTab1->setCurrentIndex(1);
        form.chkGreetTime->setChecked(false);
        form.optGreet[3]->click();
        form.txtGreet->clear();
        form.SSTab1->setCurrentIndex(2);
        form.chkNotes->click();
        form.SSTab1->setCurrentIndex(3);
        form.txtTime->setText("Tell me the time");
        form.SSTab1->setCurrentIndex(4);
        form.txtRemind->setText("   ");
        form.chkNoteDate->click();
    };
    open(0, [](frmOptions&) {});
    app.MainForm->RemindTimer->stop();
    fp.agent->calls.clear();
    fp.store.writes.clear();
    open(0, [&](frmOptions& form) {
        change(form);
        form.txtChar->setText("/chars/other.acs");
        form.chkEffects->click();
        form.chkTime->click();
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
    });
    EXPECT_TRUE(fp.store.writes.isEmpty());
    EXPECT_EQ(fp.agent->calls, (QStringList{"Commands.Visible=0", "Commands.Visible=1"}));
    EXPECT_TRUE(app.MainForm->RemindTimer->isActive());
    EXPECT_EQ(app.ModalOpen, 0);

    app.MainForm->RemindTimer->stop();
    open(0, [&](frmOptions& form) {
        change(form);
        form.cmdOK->click();
        EXPECT_FALSE(form.isVisible());
    });
    const std::pair<const char*, const char*> values[] = {
        {"Click", "1"},        {"Greeting", "3"},
        {"TimeGreeting", "1"}, {"GreetingText", " "},
        {"EnNotes", "0"},      {"NoteDate", "0"},
        {"ReminderText", " "}, {"SaveSettings", "True"},
        {"Animate", "0"},      {"TimeCmd", "Tell me the time"}};
    for (const auto& [name, value] : values)
        EXPECT_EQ(Stored(fp, name), value) << name;
    EXPECT_EQ(character().Commands().Command("Time").Voice(), "Tell me the time");
    EXPECT_FALSE(character().Commands().Command("Notes").Enabled());
    EXPECT_TRUE(character().Commands().Visible());
    EXPECT_TRUE(app.MainForm->RemindTimer->isActive());
    EXPECT_EQ(app.ModalOpen, 0);

    open(0, [&](frmOptions& form) {
        EXPECT_EQ(std::tuple(form.chkClick->isChecked(), form.optGreet[3]->isChecked(),
                             form.chkGreetTime->isChecked(), form.chkNotes->isChecked(),
                             form.chkNoteDate->isChecked()),
                  std::tuple(true, true, true, false, false));
        EXPECT_EQ(
            QStringList({form.txtGreet->text(), form.txtTime->text(), form.txtRemind->text()}),
            QStringList({" ", "Tell me the time", " "}));
    });
}

// OK reloads the character for a path that differs in any letter. After a reload that failed
// and was cancelled, OK reports what fails, stores the rest and closes.
TEST_F(frmOptionsTest, OkAppliesTheCharacterAndTriesTheReadingAnimation)
{
    const QString broken = "/chars/broken.acs";
    const QStringList reads = {"Show(0)", "Play(Read)", "Play(ReadReturn)"};
    const QStringList reload = {"Unload(G)", "Load(G,/chars/Pip.acs)"};
    const Boxes noRead{Error("Character Error", "Testy does not support the read animation.")};
    const std::tuple<QString, bool, bool, QStringList, QString, Boxes> cases[] = {
        {Pip, true, false, reads + QStringList{"Hide()"}, "1", {}},
        {Pip, true, true, reads + QStringList{"Show(0)"}, "1", {}},
        {Pip, false, false, {"Show(0)", "Hide()"}, "0", noRead},
        {"/chars/Pip.acs", true, false, reload + reads + QStringList{"Hide()"}, "1", {}},
        {broken, true, false, {"Unload(G)", "Load(G," + broken + ")"}, "0", {}},
    };
    for (const auto& [path, hasRead, visibleBefore, calls, animate, boxes] : cases) {
        SCOPED_TRACE(testing::Message() << path.toStdString() << hasRead << visibleBefore);
        fp.dialogs.boxes.clear();
        fp.store.setValue("Show", "0");
        fp.store.setValue("Character", Pip);
        fp.agent->badFiles = {broken};
        fp.dialogs.answers = {platform::BoxAnswer::Cancel};
        if (!hasRead)
            character().animations.erase("Read");
        character().visible = visibleBefore;
        open(0, [&](frmOptions& form) {
            form.txtChar->setText(path);
            form.chkAnimate->setChecked(true);
            form.chkClick->setChecked(true);
            fp.agent->calls.clear();
            form.cmdOK->click();
            EXPECT_FALSE(form.isVisible());
        });
        EXPECT_EQ(fp.agent->calls.filter(QRegularExpression("^(Show|Hide|Play|Load|Unload)")),
                  calls);
        EXPECT_EQ(Stored(fp, "Animate"), animate);
        EXPECT_EQ(app.AnimateRead, animate);
        if (path == broken) {
            EXPECT_TRUE(
                fp.dialogs.texts("Unknown Error").join(' ').contains("( Unknown ( 16 ) 91,"));
            continue;
        }
        EXPECT_EQ(fp.dialogs.boxes, boxes);
        EXPECT_EQ(Stored(fp, "Character"), path);
        EXPECT_TRUE(fp.agent->calls.contains("Commands.RemoveAll()"));
        // The applications are back at the end of the rebuilt list.
        const auto& commands = character().Commands();
        ASSERT_GT(commands.Count(), 0);
        EXPECT_EQ(character().commands.At(commands.Count() - 1).Name(), " 1");
    }
}

TEST_F(frmOptionsTest, TheGreetingHintTicksBothBoxes)
{
    const std::tuple<bool, bool, bool> cases[] = {
        {false, false, true}, {false, true, false}, {true, false, false}};
    for (const auto& [greet, show, hint] : cases) {
        fp.dialogs.boxes.clear();
        open(1, [&](frmOptions& form) {
            form.chkGreetTime->setChecked(greet);
            form.chkShow->setChecked(show);
            // On the box itself: a click beside the caption misses the button.
            QTest::mouseClick(form.chkGreetTime, Qt::LeftButton, {},
                              QPoint(8, form.chkGreetTime->height() / 2));
            EXPECT_EQ(fp.dialogs.titles(), hint ? QStringList{"Hint"} : QStringList{});
            EXPECT_EQ(form.chkGreetTime->isChecked(), !greet);
            EXPECT_EQ(form.chkShow->isChecked(), show || hint);
        });
    }
}

TEST_F(frmOptionsTest, BrowseAndTheSpeechSettingsButton)
{
    fp.dialogs.files = {"/chars/lumo.acs"};
    open(0, [&](frmOptions& form) {
        form.cmdBrowse->click();
        EXPECT_EQ(form.txtChar->text(), "/chars/lumo.acs");
        form.cmdBrowse->click();
        EXPECT_EQ(form.txtChar->text(), QString());
        form.SSTab1->setCurrentIndex(2);
        form.cmdHot->click();
    });
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_EQ(fp.dialogs.fileRequests[0].filter, "Agent Character (*.acs) |*.acs");
    EXPECT_EQ(fp.dialogs.fileRequests[0].title, "Open Character..");
    EXPECT_EQ(fp.dialogs.fileRequests[0].initialDir, app.AppPath);
    EXPECT_EQ(fp.agent->propertySheetPage, "Speech");
    EXPECT_TRUE(fp.agent->propertySheetVisible);
}

TEST_F(frmOptionsTest, CallersOpenItOnTheirTabAndEveryControlIsReachableAndNamed)
{
    QList<int> tabs;
    fp.onModal = [&](QDialog& dialog) {
        auto& form = static_cast<frmOptions&>(dialog);
        tabs << form.SSTab1->currentIndex();
        for (QGroupBox* frame : form.findChildren<QGroupBox*>())
            EXPECT_EQ(frame->isEnabled(), form.SSTab1->currentWidget()->isAncestorOf(frame))
                << frame->title().toStdString();
        for (int page = 0; page < form.SSTab1->count(); ++page)
            ExpectFocusableControlsNamed(*form.SSTab1->widget(page));
        form.cmdCancel->click();
    };
    app.MainForm->cmdOptions->click();
    app.Hooks.ShowOptions(1);
    EXPECT_EQ(tabs, QList<int>({0, 1}));
}

// One run of the program up to LoadSettings, with the character file already chosen.
struct SettingsRun : fakes::ProgramWindow {
    // Sets the stored values, then runs LoadSettings as Main does after creating the window.
    SettingsRun(const std::map<QString, QString>& values = {}, bool tray = true)
    {
        fp.tray.available = tray;
        fp.store.setValue("Character", "/chars/pip.acs");
        for (const auto& [name, value] : values)
            fp.store.setValue(name, value);
        LoadSettings(app);
    }
    QString tags() const { return app.PitchTag + app.SpeedTag + app.VolumeTag; }
};

TEST(LoadSettingsTest, FirstRunAsksForACharacter)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    fp.dialogs.files = {"/chars/pip.acs"};
    Main(app);
    EXPECT_EQ(fp.dialogs.boxes,
              (std::vector<fakes::Box>{{platform::BoxIcon::Information, platform::BoxButtons::OK,
                                        "Please select a character..",
                                        "This is your first time to run Quorl. Please select a "
                                        "character to be used."}}));
    EXPECT_EQ(fp.dialogs.fileRequests.size(), 1u);
}

TEST(LoadSettingsTest, WindowPositionOffTheScreenIsCentredAndReplaced)
{
    // The stored WinY: missing, above the screen, below it, and on it.
    const std::pair<std::optional<QString>, bool> cases[] = {
        {std::nullopt, true}, {"-15", true}, {"11505", true}, {"300", false}};
    for (const auto& [winY, centred] : cases) {
        SCOPED_TRACE(winY.value_or("missing").toStdString());
        const SettingsRun t(winY ? std::map<QString, QString>{{"WinY", *winY}}
                                 : std::map<QString, QString>{});
        const int top = t.app.MainForm->TopTwips();
        if (centred) {
            EXPECT_NEAR(top, (t.fp.screen.Height() - t.app.MainForm->HeightTwips()) / 2, 15);
            EXPECT_EQ(Stored(t.fp, "WinY"), QString::number(top));
        } else {
            EXPECT_NEAR(top, 300, 15);
            EXPECT_EQ(Stored(t.fp, "WinY"), *winY) << "rewritten";
        }
    }
    const SettingsRun t({{"WinX", "20000"}, {"WinY", "600"}});
    EXPECT_EQ(Stored(t.fp, "WinX"), QString::number(t.app.MainForm->LeftTwips()));
    EXPECT_GT(t.app.MainForm->LeftTwips(), 0);
    EXPECT_LT(t.app.MainForm->LeftTwips(), t.fp.screen.Width() / 2);
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
        EXPECT_EQ(Stored(t.fp, name), value) << name.toStdString();
    const frmMain& d = *t.app.MainForm;
    EXPECT_EQ(std::tuple(d.mnuFileSave->isChecked(), d.mnuViewVoice->isChecked(),
                         d.chkIgnore->isChecked(), d.txtIgnore->isEnabled()),
              std::tuple(true, true, true, true));
    EXPECT_EQ(t.app.ModalOpen, 0);

    const std::map<QString, QString> values = {
        {"SaveSettings", "true"}, {"ViewVoiceSettings", "true"},
        {"Whisper", "1"},         {"Balloon", "2"},
        {"Ignore", "0"},          {"IgnoreText", "#"},
        {"Animate", "1"},         {"Pitch", "200"},
        {"Speed", "90"},          {"Volume", "3000"}};
    const SettingsRun u(values);
    EXPECT_TRUE(u.fp.dialogs.boxes.empty());
    const frmMain& f = *u.app.MainForm;
    // Only "True" exactly is true.
    EXPECT_EQ(std::tuple(f.mnuFileSave->isChecked(), f.mnuViewVoice->isChecked(),
                         f.chkWhisper->isChecked(), f.chkBalloon->isChecked(),
                         f.chkIgnore->isChecked(), f.txtIgnore->isEnabled(),
                         f.txtIgnore1->isEnabled()),
              std::tuple(false, false, true, false, false, false, false));
    EXPECT_EQ(f.txtIgnore->text() + f.txtIgnore1->text(), "#*");
    EXPECT_EQ(u.app.AnimateRead, "1");
    // The stored voice wins over the character's.
    EXPECT_EQ(u.tags(), R"(\pit=200\\spd=90\\vol=3000\)");

    // A missing voice value resets the sliders read before it.
    const SettingsRun some({{"Pitch", "200"}, {"Volume", "3000"}});
    const frmMain& g = *some.app.MainForm;
    EXPECT_EQ(QList({g.sdrPitch->value(), g.sdrSpeed->value(), g.sdrVolume->value()}),
              QList({120, 160, 3000}));
    EXPECT_EQ(Stored(some.fp, "Pitch"), "200");
    EXPECT_EQ(Stored(some.fp, "Speed"), "160");
    EXPECT_EQ(some.tags(), R"(\pit=120\\spd=160\\vol=3000\)");
}

// Without a tray a hidden start is a minimized one, so that the window stays reachable from the
// task bar.
TEST(LoadSettingsTest, TopmostAndStartVisibility)
{
    const std::tuple<QString, QString, bool, bool, bool> cases[] = {
        {"True", "1", true, true, true},
        {"False", "0", true, false, false},
        {"0", "0", false, false, true}};
    for (const auto& [top, startMinimized, tray, onTop, visible] : cases) {
        SCOPED_TRACE((top + "/" + startMinimized + (tray ? "" : " without a tray")).toStdString());
        const SettingsRun t({{"Top", top}, {"StartMinimized", startMinimized}}, tray);
        EXPECT_EQ(t.app.OnTop, onTop);
        EXPECT_EQ(t.app.MainForm->mnuViewTop->isChecked(), onTop);
        EXPECT_EQ(t.app.MainForm->isVisible(), visible);
        EXPECT_EQ(t.app.MainForm->isMinimized(), !tray);
    }
}

TEST(RegFunctionsTest, AnEmptyValueIsReplacedAndDataEndsAtANulOrIsSixteenBits)
{
    fakes::FakeStore store;
    const RegFunctions::Settings settings{store};
    store.setValue("Greeting", QString());
    EXPECT_EQ(settings.Get("Greeting", "0"), "0");
    EXPECT_EQ(store.value("Greeting"), "0");

    store.setRaw("B", platform::RegistryStore::String, QByteArray("\0cd", 3));
    EXPECT_EQ(settings.ReadText("B"), QString());
    store.setRaw("Odd", platform::RegistryStore::Binary, QByteArray("\xfe\xff\x07", 3));
    const RegFunctions::KeyValue value = settings.Read("Odd");
    EXPECT_TRUE(std::holds_alternative<std::int16_t>(value));
    EXPECT_EQ(RegFunctions::ToString(value), "-2");
}
