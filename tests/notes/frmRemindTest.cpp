#include "notes/frmRemind.h"

#include "core/Controls.h"
#include "notes/NotesFixture.h"
#include "reading/ReadingEngine.h"
#include "settings/frmOptions.h"

#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

namespace
{

class frmRemindTest : public NotesFixture
{
protected:
    frmRemindTest()
    {
        notes({Note("Dentist", "Bring the card", Reminder(1, 14, 25)),
               Note("Bins", "Blue ones", Reminder(1, 14, 25))});
        // Hidden, so that what the reminder does to show the character can be seen.
        character().visible = false;
        fp.agent->calls.clear();
    }

    // The window for the record, shown without the modal flag so that it stays up.
    frmRemind* open(const QString& number = QStringLiteral("2"))
    {
        setTag(app.MainForm.get(), number);
        ShowRemindForm(app, false);
        return RemindForm(app);
    }

    void settings(const QString& value)
    {
        fp.store.setValue("ReminderText", "Time for it");
        for (const char* name : {"ShowIfHidden", "NoteTime", "NoteDate", "ReadNote"})
            fp.store.setValue(name, value);
    }
};

// Each window is closed by Enter: as it opens, or with the focus in the note's text.
TEST_F(frmRemindTest, SpeechFollowsTheSwitchesInItsOrderAndEnterCloses)
{
    const QStringList all = {"Time for it", "The time now is", "Today is", "Blue ones"};
    const struct {
        const char* what;
        std::function<void()> setup;
        QStringList spoken;
        QString firstCall;
        bool enterInText = false;
    } cases[] = {
        {"none stored", [] {}, {}, {}},
        {"all off", [&] { settings("0"); }, {}, {}, true},
        {"all on", [&] { settings("1"); }, all, "Show(1)"},
        {"time only", [&] { fp.store.setValue("NoteTime", "1"); }, {"The time now is"}, "Show(0)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fp.store = fakes::FakeStore();
        fp.agent->calls.clear();
        c.setup();
        frmRemind* form = open();
        ASSERT_TRUE(form);
        EXPECT_EQ(form->lblName->text(), QStringLiteral("Bins"));
        EXPECT_EQ(form->txtNote->toPlainText(), QStringLiteral("Blue ones"));
        const QStringList spoken = fp.agent->spoken();
        ASSERT_EQ(spoken.size(), c.spoken.size());
        for (int i = 0; i < spoken.size(); ++i)
            EXPECT_TRUE(spoken[i].contains(c.spoken[i])) << spoken[i].toStdString();
        EXPECT_EQ(fp.agent->callsStartingWith("Show(").value(0), c.firstCall);
        // The character is shown at once before anything is said.
        if (c.firstCall == "Show(1)") {
            EXPECT_LT(fp.agent->calls.indexOf("Show(1)"),
                      fp.agent->calls.indexOf(fp.agent->callsStartingWith("Speak(").value(0)));
        }
        EXPECT_TRUE(form->cmdClose->isDefault());
        EXPECT_TRUE(form->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        EXPECT_EQ(app.ModalOpen, 1);
        EXPECT_FALSE(character().Commands().Visible());
        if (c.enterInText)
            form->txtNote->setFocus();
        QTest::keyClick(c.enterInText ? form->txtNote : form->focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(RemindForm(app));
        EXPECT_EQ(app.ModalOpen, 0);
        EXPECT_TRUE(character().Commands().Visible());
    }
}

TEST_F(frmRemindTest, AReadingInProgressStaysPausedAfterTheWindowHasClosed)
{
    character().visible = true;
    const QString text = dir.filePath("story.txt");
    QFile file(text);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Once upon a time.\n");
    file.close();
    fp.dialogs.files.push_back(text);
    mnuFileRead_Click(app);
    ASSERT_TRUE(form().Timer2->isActive());

    const QString paused = QStringLiteral("Quorl - Reading ") + text + " (Paused)";
    frmRemind* reminder = open();
    EXPECT_FALSE(form().Timer2->isActive());
    EXPECT_EQ(form().windowTitle(), paused);
    EXPECT_EQ(form().cmdCont->text(), QStringLiteral("&Continue"));
    reminder->cmdClose->click();
    EXPECT_FALSE(form().Timer2->isActive());
    EXPECT_EQ(form().windowTitle(), paused);
}

TEST_F(frmRemindTest, ARecordThatIsNotThereClosesTheWindowWithABox)
{
    const struct {
        const char* what;
        std::function<void()> setup;
        QString number;
        QString title;
        QString text;
    } cases[] = {
        {"unopenable", [&] { QDir().mkdir(notesFile()); }, "1", "Unknown Error",
         "( Unknown ( 9 ) 75, Quorl)"},
        {"past the last record", [] {}, "3", "Error", "Error in Notes File"},
        {"deleted behind the program's back", [] {}, "1", "Error", "Error in Notes File"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        notes({Note("Dentist", "Bring the card", Reminder(1, 14, 25))});
        if (c.number == "1")
            QFile::remove(notesFile());
        c.setup();
        fp.dialogs.boxes.clear();
        EXPECT_FALSE(open(c.number));
        ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
        EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Critical);
        EXPECT_EQ(fp.dialogs.boxes[0].title, c.title);
        EXPECT_TRUE(fp.dialogs.boxes[0].text.contains(c.text));
        EXPECT_EQ(app.ModalOpen, 0);
        // The command group stays hidden until the next window that shows it closes.
        EXPECT_FALSE(character().Commands().Visible());
        QDir(notesFile()).removeRecursively();
    }
    // Opening the deleted file has made it anew, empty.
    EXPECT_TRUE(QFile::exists(notesFile()));
    EXPECT_EQ(QFileInfo(notesFile()).size(), 0);
}

TEST_F(frmRemindTest, RemindersAndOptionsLeadToTheirWindows)
{
    int optionsTab = -1;
    fp.onModal = [&](QDialog& dialog) {
        if (auto* options = qobject_cast<frmOptions*>(&dialog))
            optionsTab = options->SSTab1->currentIndex();
    };
    open()->cmdNotes->click();
    EXPECT_FALSE(RemindForm(app));
    open()->cmdOpt->click();
    EXPECT_FALSE(RemindForm(app));
    EXPECT_EQ(fp.modalWindows, (QStringList{"frmNotes", "frmOptions"}));
    EXPECT_EQ(optionsTab, 4) << "the options open on their tab \"&Reminders\"";
}

} // namespace
