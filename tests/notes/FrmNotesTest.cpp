#include "notes/frmNotes.h"

#include "core/frmMain.h"
#include "fakes/ItemTexts.h"
#include "notes/NotesFixture.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <map>

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

// What the window shows of a note: name, note, remind, kind, every, day, year, hour, minute,
// AM or PM, and the sentence.
QStringList shown(const frmNotes& f)
{
    return {
        f.txtName->text(),       f.txtNote->toPlainText(),   f.chkRemind->isChecked() ? "1" : "0",
        f.ListOn->currentText(), f.ListEvery->currentText(), f.txtDay->text(),
        f.txtYear->text(),       f.ListHour->currentText(),  f.ListMin->currentText(),
        f.ListAm->currentText(), f.LabelReview->text()};
}

std::map<QString, QWidget*> boxes(const frmNotes& f)
{
    return {{"Name", f.txtName}, {"Note", f.txtNote},    {"Remind", f.chkRemind},
            {"Kind", f.ListOn},  {"Every", f.ListEvery}, {"Day", f.txtDay},
            {"Year", f.txtYear}, {"Hour", f.ListHour},   {"Minute", f.ListMin},
            {"Am", f.ListAm}};
}

QLineEdit* lineEditOf(QWidget* box)
{
    auto* list = qobject_cast<QComboBox*>(box);
    return list ? list->lineEdit() : qobject_cast<QLineEdit*>(box);
}

// Focuses a box as Tab would and types over what it offers for replacing.
void type(QWidget* box, const QString& keys)
{
    if (box->hasFocus())
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    box->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
    if (QLineEdit* edit = lineEditOf(box)) {
        ASSERT_TRUE(QTest::qWaitFor([edit] { return edit->selectedText() == edit->text(); }));
    } else {
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    }
    QTest::keyClicks(box, QString(keys).replace('\n', '\r'));
}

// Runs actions separated by ";": "Box=keys" types, or picks by the keyboard search, and leaves
// the box, "Box~keys" types and stays, "Remind=" turns the check box over.
void run(frmNotes& f, const QString& script)
{
    for (const QString& action : script.split(';')) {
        const qsizetype mark = std::max(action.indexOf('='), action.indexOf('~'));
        QWidget* box = boxes(f).at(action.left(mark));
        const QString keys = action.mid(mark + 1);
        auto* list = qobject_cast<QComboBox*>(box);
        if (box == f.chkRemind) {
            QTest::keyClick(box, Qt::Key_Space);
        } else if (list && !list->isEditable()) {
            // A new search, not the continuation of the last one typed a moment ago.
            list->view()->keyboardSearch(QString());
            QTest::keyClicks(list, keys);
            EXPECT_EQ(list->currentText(), keys);
        } else {
            type(box, keys);
        }
        if (action[mark] == '=')
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

void clickEntry(QListWidget* list, int row)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

class FrmNotesTest : public NotesFixture
{
protected:
    // Opens the window from the menu, or by the command, and runs the script while it is up.
    void session(const std::function<void(frmNotes&)>& script, const QString& command = {})
    {
        fp.onModal = [&](QDialog& dialog) {
            auto& form = static_cast<frmNotes&>(dialog);
            form.show();
            form.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
            script(form);
        };
        if (command.isEmpty())
            form().mnuQuorlReminders->trigger();
        else
            app.Events->Agent1_Command({command});
        fp.onModal = nullptr;
    }

    // The reminder timer, the modal count, the command group and staying on top.
    auto state()
    {
        return std::tuple(form().RemindTimer->isActive(), int(app.ModalOpen),
                          character().Commands().Visible(), app.OnTop);
    }
};

TEST_F(FrmNotesTest, FirstRunOffersANewNoteAtThePresentTimeAndTheKeyboardReachesEveryControl)
{
    form().RemindTimer->start();
    form().mnuViewTop->setChecked(true);
    // Opened by the spoken command this time.
    session(
        [&](frmNotes& f) {
            EXPECT_EQ(state(), std::tuple(false, 1, false, false));
            EXPECT_EQ(f.windowTitle(), QStringLiteral("Notes & Reminders"));
            EXPECT_EQ(shown(f), (QStringList{"New Note", "", "1", "Once", "November", "22", "2026",
                                             "02", "25", "PM", ""}));
            EXPECT_EQ(
                std::tuple(f.Frame1->isEnabled(), f.cmdChange->isEnabled(), f.cmdDel->isEnabled()),
                std::tuple(true, false, false));
            EXPECT_EQ(QApplication::focusWidget(), f.txtName);
            // The note's field holds 500 bytes, a line end taking two.
            type(f.txtNote, QString(499, 'a') + "\nbc");
            EXPECT_EQ(f.txtNote->toPlainText(), QString(499, 'a') + 'b');
            type(f.txtName, "Walk");
            QTest::keyClick(&f, Qt::Key_A, Qt::AltModifier);
            ASSERT_TRUE(QTest::qWaitFor([&] { return f.List1->count() == 1; }));
            QStringList names;
            for (int i = 0; i < 16; ++i) {
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                names << QApplication::focusWidget()->accessibleName();
            }
            EXPECT_EQ(names, (QStringList{"Notes", "Note:", "Remind me", "Remind me how often",
                                          "On", "Day:", "Year:", "Time hour", "Time minute",
                                          "AM or PM", "When the reminder comes", "Add", "Change",
                                          "Remove", "Close", "Note or Reminder Name:"}));
            QTest::keyClick(&f, Qt::Key_C, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor([&] { return !f.isVisible(); }));
        },
        "Notes");
    EXPECT_EQ(fp.modalWindows, QStringList{"frmNotes"});
    EXPECT_EQ(state(), std::tuple(true, 0, true, true));
}

TEST_F(FrmNotesTest, ThreeKindsMadeThroughTheControlsAreStoredFieldByFieldAndComeBack)
{
    const struct {
        QString script;
        QStringList shown;
        NoteRow row;
    } notes[] = {
        {"Name=Dentist;Note=Call first\nBring "
         "card;Every=March;Day=5;Year=2027;Hour=9;Minute=5;Am=AM",
         {"Dentist", "Call first\nBring card", "1", "Once", "March", "5", "2027", "09", "05", "AM",
          "Friday, March 5, 2027 at 09:05 AM"},
         {1, 0, 2, 5, 2027, 8, 5, 0}},
        {"Name=Gym;Note=Bring towel;Kind=Weekly;Every=Tuesday;Hour=6;Minute=30;Am=PM",
         {"Gym", "Bring towel", "1", "Weekly", "Tuesday", "5", "2027", "06", "30", "PM",
          "Weekly on Tuesdays at 06:30 PM"},
         {1, 2, 2, 5, 2027, 5, 30, 1}},
        // With the reminder off the sentence still shows when the note is selected.
        {"Name=Birthday;Note=Cake;Kind=Yearly;Every=July;Day=14;Hour=12;Minute=0;Am=AM;Remind=",
         {"Birthday", "Cake", "0", "Yearly", "July", "14", "2027", "12", "00", "AM",
          "Yearly on July 14, at 12:00 AM"},
         {0, 4, 6, 14, 2027, 11, 0, 0}},
    };
    session([&](frmNotes& f) {
        for (const auto& n : notes) {
            run(f, n.script);
            f.cmdNew->click();
            EXPECT_EQ(shown(f), n.shown);
        }
        f.cmdClose->click();
    });

    EXPECT_EQ(QFileInfo(notesFile()).size(), 3 * NoteRecordLayout::Length);
    const std::vector<NoteRecord> stored = ReadNotesFile(notesFile());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        // The line end is stored as carriage return and line feed.
        const QString text = QString(notes[i].shown[1]).replace("\n", "\r\n");
        EXPECT_EQ(stored[i], (NoteRecord{notes[i].row, notes[i].shown[0], text})) << i;
    }

    session([&](frmNotes& f) {
        EXPECT_EQ(ItemTexts(f.List1), (QStringList{"Dentist", "Gym", "Birthday"}));
        for (int i : {0, 1, 2}) {
            clickEntry(f.List1, i);
            EXPECT_EQ(shown(f), notes[i].shown);
        }
    });
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(FrmNotesTest, NamesAreComparedTrimmedAndExactly)
{
    const QString cannotAdd = "Cannot Add Item", missing = "Missing Data";
    const QString exists = "A note with same name exists";
    const QStringList three = {"Tea", "tea", "Milk"};
    const struct {
        bool change;               // cmdChange, else cmdNew
        QString name, title, text; // a null title: no box
        QStringList list;
    } steps[] = {
        {false, "Tea", {}, {}, {"Tea"}},
        {false, "Tea", cannotAdd, exists, {"Tea"}},
        {false, "tea", {}, {}, {"Tea", "tea"}},
        {false, "  Milk  ", {}, {}, three},
        {false, " Milk", cannotAdd, exists, three},
        {false, "   ", missing, "You must specify a name for your note", three},
        {true, "Milk", {}, {}, three},
        {true, "Tea", cannotAdd, "A note with same name or voice command exists", three},
        {true, " ", missing, "You must have a short name for your note", three},
        {true, "Oat milk", {}, {}, {"Tea", "tea", "Oat milk"}},
    };
    session([&](frmNotes& f) {
        for (const auto& step : steps) {
            SCOPED_TRACE(step.name.toStdString());
            fp.dialogs.boxes.clear();
            type(f.txtName, step.name);
            (step.change ? f.cmdChange : f.cmdNew)->click();
            const fakes::Box box = {BoxIcon::Warning, BoxButtons::OK, step.title, step.text};
            EXPECT_EQ(fp.dialogs.boxes, std::vector(step.title.isNull() ? 0 : 1, box));
            EXPECT_EQ(ItemTexts(f.List1), step.list);
        }
        EXPECT_EQ(f.WorkingNotes[3].NoteName, QStringLiteral("Oat milk"));
        QTest::mouseMove(f.List1->viewport(), f.List1->visualItemRect(f.List1->item(0)).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return f.List1->toolTip() == "Oat milk"; }));
    });
}

TEST_F(FrmNotesTest, RemovingSelectsTheNoteBeforeAndRemovingAllLeavesNoFile)
{
    WriteNotesFile(notesFile(),
                   {{{1, 1}, "A", "about A"}, {{1, 1}, "B", "about B"}, {{1, 1}, "C", "about C"}});
    const struct {
        int row;
        BoxAnswer answer;
        QStringList list;
        QString selected; // shown in the name box after the removal
    } steps[] = {
        {1, BoxAnswer::No, {"A", "B", "C"}, "B"},
        {1, BoxAnswer::Yes, {"A", "C"}, "A"},
        {0, BoxAnswer::Yes, {"C"}, "C"},
        {0, BoxAnswer::Yes, {}, "New Note"},
    };
    session([&](frmNotes& f) {
        for (const auto& step : steps) {
            SCOPED_TRACE(step.selected.toStdString());
            clickEntry(f.List1, step.row);
            fp.dialogs.answers = {step.answer};
            f.cmdDel->click();
            EXPECT_EQ(ItemTexts(f.List1), step.list);
            EXPECT_EQ(f.txtName->text(), step.selected);
            EXPECT_EQ(int(f.WorkingNotes.size()), step.list.size() + 1);
        }
        const fakes::Box confirm = {BoxIcon::Warning, BoxButtons::YesNo, "Confirmation",
                                    "Are you sure?"};
        EXPECT_EQ(fp.dialogs.boxes, std::vector(std::size(steps), confirm));
        EXPECT_EQ(f.txtNote->toPlainText(), QString());
        EXPECT_EQ(std::pair(f.cmdChange->isEnabled(), f.cmdDel->isEnabled()),
                  std::pair(false, false));
        f.cmdClose->click();
    });
    EXPECT_FALSE(QFile::exists(notesFile()));
}

TEST_F(FrmNotesTest, AStoredPositionTheListLacksIsReportedOncePerFieldAndTheRestLoads)
{
    WriteNotesFile(notesFile(),
                   {{{1, 2, 2, 5, 2026, 5, 30, 1}, "Gym", ""},
                    // A Daily note keeps the month that the list held when it was saved.
                    {{1, 1, 10, 3, 2025, 7, 45, 1}, "Pills", "Two"},
                    {{1, 7, 0, 4, 2024, 12, 10, 2}, "Broken", "Three"}});
    const fakes::Box error = {BoxIcon::Critical, BoxButtons::OK, "Notes File Error",
                              "Error in your Notes file. To start a new one, delete '" +
                                  notesFile() + "'"};
    session([&](frmNotes& f) {
        fp.dialogs.boxes.clear();
        clickEntry(f.List1, 1);
        EXPECT_EQ(fp.dialogs.boxes, std::vector(1, error));
        EXPECT_EQ(shown(f), (QStringList{"Pills", "Two", "1", "Daily", "Tuesday", "3", "2025", "08",
                                         "45", "PM", "Daily at 08:45 PM"}));
        // The kind, the hour and AM or PM are bad; the list of weekdays stays.
        fp.dialogs.boxes.clear();
        clickEntry(f.List1, 2);
        EXPECT_EQ(fp.dialogs.boxes, std::vector(3, error));
        EXPECT_EQ(shown(f), (QStringList{"Broken", "Three", "1", "Daily", "Sunday", "4", "2024",
                                         "08", "10", "PM", "Daily at 08:10 PM"}));
    });
}

TEST_F(FrmNotesTest, TheScheduleBoxesFilterTypingAndReplaceWhatCannotBe)
{
    const struct {
        QString script, box, text;
        bool selected; // the text stands selected, for the next key to replace
        int beeps;
        QString review; // null: not looked at
    } cases[] = {
        {"Hour~13", "Hour", "02", true, 0, {}},
        {"Hour~0", "Hour", "02", true, 0, {}},
        {"Hour=7", "Hour", "07", false, 0, {}},
        {"Minute~60", "Minute", "25", true, 0, {}},
        {"Minute=00", "Minute", "00", false, 0, {}},
        {"Hour~x", "Hour", "02", true, 1, {}},
        {"Year=98", "Year", "1998", false, 0, {}},
        {"Year=2", "Year", "2", false, 0, {}},
        {"Year=199", "Year", "199", false, 0, {}},
        {"Year~98\b\b", "Year", "2026", false, 0, {}},
        {"Every=February;Year=2028;Day=29", "Day", "29", false, 0,
         "Tuesday, February 29, 2028 at 02:25 PM"},
        // Wednesday stands for April, which has no 31st.
        {"Every=January;Day=31;Kind=Weekly;Every=Wednesday", "Day", "22", false, 0,
         "Weekly on Sundays at 02:25 PM"},
        {"Kind=Monthly;Day=5", "Day", "5", false, 0, "Monthly on 5, at 02:25 PM"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.script.toStdString());
        const int beeps = fp.dialogs.beeps;
        session([&](frmNotes& f) {
            run(f, c.script);
            QLineEdit* box = lineEditOf(boxes(f).at(c.box));
            EXPECT_EQ(box->text(), c.text);
            EXPECT_EQ(box->selectedText() == box->text(), c.selected);
            if (!c.review.isNull()) {
                EXPECT_EQ(f.LabelReview->text(), c.review);
            }
        });
        EXPECT_EQ(fp.dialogs.beeps - beeps, c.beeps);
    }
}

// A file that cannot be read keeps the window closed; one that cannot be written offers Retry,
// and Cancel drops the edits.
TEST_F(FrmNotesTest, AFileThatCannotBeReadOrWrittenIsNamedInABox)
{
    const QString unreadable = notesFile(), unwritable = dir.path() + "/missing/Notes.cfg";
    ASSERT_TRUE(QDir().mkdir(unreadable));
    form().mnuQuorlReminders->trigger();
    EXPECT_TRUE(fp.modalWindows.isEmpty());
    EXPECT_EQ(state(), std::tuple(true, 0, false, false));

    app.AppPath = dir.path() + "/missing";
    fp.dialogs.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    session([&](frmNotes& f) {
        f.cmdNew->click();
        f.cmdClose->click();
        EXPECT_FALSE(f.isVisible());
    });
    using Seen = std::tuple<BoxIcon, BoxButtons, QString>;
    std::vector<Seen> seen;
    for (const fakes::Box& b : fp.dialogs.boxes)
        seen.emplace_back(b.icon, b.buttons, b.title);
    const Seen retry = {BoxIcon::Critical, BoxButtons::RetryCancel, "Cannot Open " + unwritable};
    EXPECT_EQ(seen,
              (std::vector<Seen>{
                  {BoxIcon::Critical, BoxButtons::OK, "Cannot Open " + unreadable}, retry, retry}));
    // Only cmdClose brings the command group back.
    EXPECT_EQ(state(), std::tuple(true, 0, false, false));
}

} // namespace
