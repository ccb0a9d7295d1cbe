#include "settings/frmOptions.h"

#include "apps/AppsFile.h"
#include "character/LoadCharacter.h"
#include "fakes/Accessibility.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using platform::BoxIcon;

namespace
{

const QString Pip = QStringLiteral("/chars/pip.acs");

// The main window after start-up with the character Pip loaded from the store, its command
// list built and one application on it.
class frmOptionsTest : public ::testing::Test, protected fakes::ProgramWindow
{
protected:
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

    fakes::FakeCharacter& character() { return *fp.agent->character(); }
    QString stored(const char* name) const { return fp.store.value(name).value_or("<missing>"); }
    QString voiceOf(const char* command) { return character().Commands().Command(command).Voice(); }
    // Each box as "title: text".
    QStringList boxes() const
    {
        QStringList shown;
        for (const fakes::Box& box : fp.dialogs.boxes)
            shown << box.title + ": " + box.text;
        return shown;
    }

    // Opens the dialog on a tab; act runs while it is up, as the user would.
    void open(int tab, const std::function<void(frmOptions&)>& act)
    {
        fp.onModal = [&](QDialog& dialog) {
            auto& form = static_cast<frmOptions&>(dialog);
            form.show();
            act(form);
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
        EXPECT_EQ(form.txtTime->text(), "What is the time?");
        EXPECT_EQ(form.txtRemind->text(), "You have a reminder");
        EXPECT_EQ(form.txtGreet->text(), " ");
        EXPECT_TRUE(form.chkAnimate->isChecked());
        EXPECT_FALSE(form.chkClick->isChecked());
        EXPECT_TRUE(form.chkClick1->isChecked());
        EXPECT_TRUE(form.optGreet[0]->isChecked());
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
        form.cmdCancel->click();
    });
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Unknown Error"});
    EXPECT_TRUE(fp.dialogs.boxes[0].text.contains("( Unknown ( 7 ) 340"));
}

// An empty box stops OK before anything is stored or applied: the character box first, then the
// voice boxes in the order date, time, shut down, notes, clip board, restart.
TEST_F(frmOptionsTest, AnEmptyBoxStopsOkWithItsFocusAndBox)
{
    using F = frmOptions;
    const QString voice = "Voice Command Required: Voice commands cannot be empty";
    const QString character = "Character not specified: Please specify a character file (ACS file)";
    const struct {
        std::vector<QLineEdit * F::*> emptied;
        QLineEdit* F::*focused;
        QString box;
        int tab;
    } cases[] = {
        {{&F::txtChar, &F::txtTime}, &F::txtChar, character, 2},
        {{&F::txtRestart}, &F::txtRestart, voice, 3},
        {{&F::txtTime, &F::txtDate}, &F::txtDate, voice, 3},
        {{&F::txtClip, &F::txtNotes, &F::txtRestart}, &F::txtNotes, voice, 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.box.toStdString() + std::to_string(c.emptied.size()));
        fp.dialogs.boxes.clear();
        open(2, [&](frmOptions& form) {
            fp.store.writes.clear();
            fp.agent->calls.clear();
            for (auto box : c.emptied)
                (form.*box)->clear();
            form.cmdOK->click();
            EXPECT_EQ(boxes(), QStringList{c.box});
            EXPECT_TRUE(!fp.dialogs.boxes.empty() && fp.dialogs.boxes[0].icon == BoxIcon::Critical);
            EXPECT_EQ(form.SSTab1->currentIndex(), c.tab);
            EXPECT_EQ(form.focusWidget(), form.*c.focused);
            EXPECT_TRUE(form.isVisible());
            EXPECT_TRUE(fp.store.writes.isEmpty());
            EXPECT_TRUE(fp.agent->calls.isEmpty()) << fp.agent->calls.join(' ').toStdString();
            form.cmdCancel->click();
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
    open(0, [](frmOptions& form) { form.cmdCancel->click(); });
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
    EXPECT_EQ(voiceOf("Time"), "What is the time");
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
        EXPECT_EQ(stored(name), value) << name;
    EXPECT_EQ(voiceOf("Time"), "Tell me the time");
    EXPECT_FALSE(character().Commands().Command("Notes").Enabled());
    EXPECT_TRUE(character().Commands().Visible());
    EXPECT_TRUE(app.MainForm->RemindTimer->isActive());
    EXPECT_EQ(app.ModalOpen, 0);

    open(0, [&](frmOptions& form) {
        EXPECT_TRUE(form.chkClick->isChecked());
        EXPECT_TRUE(form.optGreet[3]->isChecked());
        EXPECT_TRUE(form.chkGreetTime->isChecked());
        EXPECT_EQ(form.txtGreet->text(), " ");
        EXPECT_FALSE(form.chkNotes->isChecked());
        EXPECT_EQ(form.txtTime->text(), "Tell me the time");
        EXPECT_EQ(form.txtRemind->text(), " ");
        EXPECT_FALSE(form.chkNoteDate->isChecked());
        form.cmdCancel->click();
    });
}

// OK reloads the character for a path that differs in any letter. After a reload that failed
// and was cancelled, OK reports what fails, stores the rest and closes.
TEST_F(frmOptionsTest, OkAppliesTheCharacterAndTriesTheReadingAnimation)
{
    const QString broken = "/chars/broken.acs";
    const QStringList reads = {"Show(0)", "Play(Read)", "Play(ReadReturn)"};
    const QStringList reload = {"Unload(G)", "Load(G,/chars/Pip.acs)"};
    const struct {
        QString path;
        bool hasRead, visibleBefore;
        QStringList calls;
        QString animate;
        QStringList boxes = {};
    } cases[] = {
        {Pip, true, false, reads + QStringList{"Hide()"}, "1"},
        {Pip, true, true, reads + QStringList{"Show(0)"}, "1"},
        {Pip,
         false,
         false,
         {"Show(0)", "Hide()"},
         "0",
         {"Character Error: Testy does not support the read animation."}},
        {"/chars/Pip.acs", true, false, reload + reads + QStringList{"Hide()"}, "1"},
        {broken, true, false, {"Unload(G)", "Load(G," + broken + ")"}, "0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.path.toStdString() << c.hasRead << c.visibleBefore);
        fp.dialogs.boxes.clear();
        fp.store.setValue("Show", "0");
        fp.store.setValue("Character", Pip);
        fp.agent->badFiles = {broken};
        fp.dialogs.answers = {platform::BoxAnswer::Cancel};
        if (!c.hasRead)
            character().animations.erase("Read");
        character().visible = c.visibleBefore;
        open(0, [&](frmOptions& form) {
            form.txtChar->setText(c.path);
            form.chkAnimate->setChecked(true);
            form.chkClick->setChecked(true);
            fp.agent->calls.clear();
            form.cmdOK->click();
            EXPECT_FALSE(form.isVisible());
        });
        EXPECT_EQ(fp.agent->calls.filter(QRegularExpression("^(Show|Hide|Play|Load|Unload)")),
                  c.calls);
        EXPECT_EQ(stored("Animate"), c.animate);
        EXPECT_EQ(app.AnimateRead, c.animate);
        if (c.path == broken) {
            EXPECT_TRUE(
                fp.dialogs.texts("Unknown Error").join(' ').contains("( Unknown ( 16 ) 91,"));
            continue;
        }
        EXPECT_EQ(boxes(), c.boxes);
        EXPECT_EQ(stored("Character"), c.path);
        EXPECT_TRUE(fp.agent->calls.contains("Commands.RemoveAll()"));
        // The applications are back at the end of the rebuilt list.
        const auto& commands = character().Commands();
        ASSERT_GT(commands.Count(), 0);
        EXPECT_EQ(character().commands.At(commands.Count() - 1).Name(), " 1");
    }
}

TEST_F(frmOptionsTest, TheGreetingHintTicksBothBoxes)
{
    const struct {
        bool greet, show, hint;
    } cases[] = {{false, false, true}, {false, true, false}, {true, false, false}};
    for (const auto& c : cases) {
        fp.dialogs.boxes.clear();
        open(1, [&](frmOptions& form) {
            form.chkGreetTime->setChecked(c.greet);
            form.chkShow->setChecked(c.show);
            // On the box itself: a click beside the caption misses the button.
            QTest::mouseClick(form.chkGreetTime, Qt::LeftButton, {},
                              QPoint(8, form.chkGreetTime->height() / 2));
            EXPECT_EQ(fp.dialogs.titles(), c.hint ? QStringList{"Hint"} : QStringList{});
            EXPECT_EQ(form.chkGreetTime->isChecked(), !c.greet);
            EXPECT_EQ(form.chkShow->isChecked(), c.show || c.hint);
            form.cmdCancel->click();
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
        form.cmdCancel->click();
    });
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_EQ(fp.dialogs.fileRequests[0].filter, "Agent Character (*.acs) |*.acs");
    EXPECT_EQ(fp.dialogs.fileRequests[0].title, "Open Character..");
    EXPECT_EQ(fp.dialogs.fileRequests[0].initialDir, app.AppPath);
    EXPECT_EQ(fp.agent->propertySheetPage, "Speech");
    EXPECT_TRUE(fp.agent->propertySheetVisible);
}

// Only the frames of the tab in front are enabled.
TEST_F(frmOptionsTest, CallersOpenItOnTheirTab)
{
    QStringList seen; // the tab in front and how many frames are enabled
    fp.onModal = [&](QDialog& dialog) {
        auto& form = static_cast<frmOptions&>(dialog);
        const QList<QGroupBox*> frames = form.findChildren<QGroupBox*>();
        seen << QString::number(form.SSTab1->currentIndex()) + ":" +
                    QString::number(std::count_if(frames.begin(), frames.end(),
                                                  [](QGroupBox* f) { return f->isEnabled(); }));
        form.cmdCancel->click();
    };
    app.MainForm->cmdOptions->click();
    app.Hooks.ShowOptions(1);
    EXPECT_EQ(seen, (QStringList{"0:1", "1:2"}));
}

TEST_F(frmOptionsTest, EveryControlIsReachableAndNamed)
{
    open(0, [](frmOptions& form) {
        for (int page = 0; page < form.SSTab1->count(); ++page)
            ExpectFocusableControlsNamed(*form.SSTab1->widget(page));
        form.cmdCancel->click();
    });
}

} // namespace
