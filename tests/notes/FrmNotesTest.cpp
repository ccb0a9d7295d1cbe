#include "notes/frmNotes.h"

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/LoadedProgram.h"
#include "notes/NotesFile.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtEndian>
#include <array>
#include <gtest/gtest.h>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

// What the window shows of a note.
struct Shown {
    QString name, note;
    bool remind;
    QString kind, every, day, year, hour, minute, amPm, review;
    bool operator==(const Shown&) const = default;
};

void PrintTo(const Shown& s, std::ostream* out)
{
    for (const QString& field :
         {s.name, s.note, s.kind, s.every, s.day, s.year, s.hour, s.minute, s.amPm, s.review})
        *out << '"' << field.toStdString() << "\" ";
    *out << (s.remind ? "remind" : "no reminder");
}

Shown shown(const frmNotes& f)
{
    return {f.txtName->text(),       f.txtNote->toPlainText(),   f.chkRemind->isChecked(),
            f.ListOn->currentText(), f.ListEvery->currentText(), f.txtDay->text(),
            f.txtYear->text(),       f.ListHour->currentText(),  f.ListMin->currentText(),
            f.ListAm->currentText(), f.LabelReview->text()};
}

QLineEdit* lineEditOf(QWidget* box)
{
    if (auto* list = qobject_cast<QComboBox*>(box))
        return list->lineEdit();
    return qobject_cast<QLineEdit*>(box);
}

// Focuses a box as Tab would and types over what it offers for replacing.
void leave()
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}

void type(QWidget* box, const QString& keys)
{
    if (box->hasFocus())
        leave();
    box->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(QTest::qWaitFor([box] { return box->hasFocus(); }));
    if (auto* note = qobject_cast<QPlainTextEdit*>(box)) {
        QTest::keyClick(note, Qt::Key_A, Qt::ControlModifier);
    } else {
        QLineEdit* edit = lineEditOf(box);
        ASSERT_TRUE(QTest::qWaitFor([edit] { return edit->selectedText() == edit->text(); }));
    }
    QTest::keyClicks(box, keys);
}

// Picks an entry of a list by typing its name, as the keyboard search does.
void pick(QComboBox* list, const QString& entry)
{
    // A new search, not the continuation of the last one typed a moment ago.
    list->view()->keyboardSearch(QString());
    QTest::keyClicks(list, entry);
    EXPECT_EQ(list->currentText(), entry);
}

void click(QWidget* control)
{
    QTest::mouseClick(control, Qt::LeftButton);
}

void clickEntry(QListWidget* list, int row)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
}

QStringList entries(const QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

NoteRecord note(const QString& name, const QString& text, NoteRow row)
{
    NoteRecord record;
    static_cast<NoteRow&>(record) = row;
    record.NoteName = name;
    record.NoteText = text;
    return record;
}

class FrmNotesTest : public testing::Test, protected fakes::LoadedProgram
{
protected:
    FrmNotesTest()
    {
        app.AppPath = dir.path();
        // A Sunday afternoon.
        fp.clock.now = QDateTime(QDate(2026, 11, 22), QTime(14, 25));
    }

    QString notesFile() const { return NotesFilePath(app.AppPath); }

    // Opens the window from the menu and runs the script while it is up.
    void session(const std::function<void(frmNotes&)>& script)
    {
        fp.onModal = [&](QDialog& dialog) {
            auto& form = static_cast<frmNotes&>(dialog);
            form.show();
            form.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
            script(form);
        };
        form().mnuQuorlReminders->trigger();
        fp.onModal = nullptr;
    }

    QTemporaryDir dir;
};

TEST_F(FrmNotesTest, FirstRunOffersANewNoteAtThePresentTimeWhileTheSchedulerRests)
{
    form().RemindTimer->start();
    form().mnuViewTop->setChecked(true);
    session([&](frmNotes& f) {
        EXPECT_FALSE(form().RemindTimer->isActive());
        EXPECT_EQ(app.ModalOpen, 1);
        EXPECT_FALSE(character().Commands().Visible());
        EXPECT_EQ(f.windowTitle(), QStringLiteral("Notes & Reminders"));
        EXPECT_EQ(shown(f), (Shown{"New Note", "", true, "Once", "November", "22", "2026", "02",
                                   "25", "PM", ""}));
        EXPECT_TRUE(f.Frame1->isEnabled());
        EXPECT_FALSE(f.cmdChange->isEnabled());
        EXPECT_FALSE(f.cmdDel->isEnabled());
        // The note's field holds 500 bytes, a line end taking two.
        type(f.txtNote, QString(499, 'a'));
        QTest::keyClick(f.txtNote, Qt::Key_Return);
        QTest::keyClicks(f.txtNote, "bc");
        EXPECT_EQ(f.txtNote->toPlainText(), QString(499, 'a') + 'b');
        click(f.cmdClose);
    });
    EXPECT_EQ(fp.modalWindows, QStringList{"frmNotes"});
    EXPECT_TRUE(form().RemindTimer->isActive());
    EXPECT_EQ(app.ModalOpen, 0);
    EXPECT_TRUE(character().Commands().Visible());
    EXPECT_TRUE(app.OnTop);
    EXPECT_FALSE(QFile::exists(notesFile()));
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(FrmNotesTest, TheKeyboardAloneReachesEveryControlByItsName)
{
    session([&](frmNotes& f) {
        EXPECT_EQ(QApplication::focusWidget(), f.txtName);
        QTest::keyClick(f.txtName, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(f.txtName, "Walk");
        QTest::keyClick(&f, Qt::Key_A, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return f.List1->count() == 1; }));

        QStringList names;
        for (int i = 0; i < 16; ++i) {
            leave();
            names << QApplication::focusWidget()->accessibleName();
        }
        EXPECT_EQ(names, (QStringList{"Notes", "Note:", "Remind me", "Remind me how often", "On",
                                      "Day:", "Year:", "Time hour", "Time minute", "AM or PM",
                                      "When the reminder comes", "Add", "Change", "Remove", "Close",
                                      "Note or Reminder Name:"}));
        QStringList distinct = names;
        distinct.removeDuplicates();
        EXPECT_EQ(distinct.size(), names.size());

        QTest::keyClick(&f, Qt::Key_C, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !f.isVisible(); }));
    });
    EXPECT_EQ(QFile(notesFile()).size(), 566);
}

TEST_F(FrmNotesTest, ThreeKindsMadeThroughTheControlsAreStoredFieldByFieldAndComeBack)
{
    std::vector<Shown> added;
    session([&](frmNotes& f) {
        type(f.txtName, "Dentist");
        type(f.txtNote, "Call first");
        QTest::keyClick(f.txtNote, Qt::Key_Return);
        QTest::keyClicks(f.txtNote, "Bring card");
        pick(f.ListEvery, "March");
        type(f.txtDay, "5");
        type(f.txtYear, "2027");
        type(f.ListHour, "9");
        type(f.ListMin, "5");
        pick(f.ListAm, "AM");
        leave();
        click(f.cmdNew);
        added.push_back(shown(f));

        type(f.txtName, "Gym");
        type(f.txtNote, "Bring towel");
        pick(f.ListOn, "Weekly");
        pick(f.ListEvery, "Tuesday");
        type(f.ListHour, "6");
        type(f.ListMin, "30");
        pick(f.ListAm, "PM");
        leave();
        click(f.cmdNew);
        added.push_back(shown(f));

        type(f.txtName, "Birthday");
        type(f.txtNote, "Cake");
        pick(f.ListOn, "Yearly");
        pick(f.ListEvery, "July");
        type(f.txtDay, "14");
        type(f.ListHour, "12");
        type(f.ListMin, "0");
        pick(f.ListAm, "AM");
        leave();
        QTest::keyClick(f.chkRemind, Qt::Key_Space);
        click(f.cmdNew);
        added.push_back(shown(f));
        click(f.cmdClose);
    });

    ASSERT_EQ(added.size(), 3u);
    EXPECT_EQ(added[0], (Shown{"Dentist", "Call first\nBring card", true, "Once", "March", "5",
                               "2027", "09", "05", "AM", "Friday, March 5, 2027 at 09:05 AM"}));
    EXPECT_EQ(added[1], (Shown{"Gym", "Bring towel", true, "Weekly", "Tuesday", "5", "2027", "06",
                               "30", "PM", "Weekly on Tuesdays at 06:30 PM"}));
    // With the reminder off the sentence still shows when the note is selected.
    EXPECT_EQ(added[2], (Shown{"Birthday", "Cake", false, "Yearly", "July", "14", "2027", "12",
                               "00", "AM", "Yearly on July 14, at 12:00 AM"}));

    QFile file(notesFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    ASSERT_EQ(bytes.size(), 3 * 566);
    const struct {
        QByteArray name;
        QByteArray text;
        // Remind, Kind, Every, Day, Year, HourIndex, MinuteIndex, AmPm
        std::array<qint16, 8> numbers;
    } records[] = {
        {"Dentist", "Call first\r\nBring card", {1, 0, 2, 5, 2027, 8, 5, 0}},
        {"Gym", "Bring towel", {1, 2, 2, 5, 2027, 5, 30, 1}},
        {"Birthday", "Cake", {0, 4, 6, 14, 2027, 11, 0, 0}},
    };
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        const QByteArray record = bytes.mid(i * 566, 566);
        EXPECT_EQ(record.left(50), records[i].name.leftJustified(50, ' '));
        EXPECT_EQ(record.mid(50, 500), records[i].text.leftJustified(500, ' '));
        for (int k = 0; k < 8; ++k)
            EXPECT_EQ(qFromLittleEndian<qint16>(record.constData() + 550 + 2 * k),
                      records[i].numbers[std::size_t(k)])
                << "field " << k;
    }

    session([&](frmNotes& f) {
        EXPECT_EQ(entries(f.List1), (QStringList{"Dentist", "Gym", "Birthday"}));
        for (int i : {0, 1, 2}) {
            clickEntry(f.List1, i);
            EXPECT_EQ(shown(f), added[std::size_t(i)]) << i;
        }
    });
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(FrmNotesTest, NamesAreComparedTrimmedAndExactly)
{
    const struct {
        QPushButton* frmNotes::*button;
        QString name;
        QString title;
        QString text;
        QStringList list;
    } steps[] = {
        {&frmNotes::cmdNew, "Tea", "", "", {"Tea"}},
        {&frmNotes::cmdNew, "Tea", "Cannot Add Item", "A note with same name exists", {"Tea"}},
        {&frmNotes::cmdNew, "tea", "", "", {"Tea", "tea"}},
        {&frmNotes::cmdNew, "  Milk  ", "", "", {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdNew,
         " Milk",
         "Cannot Add Item",
         "A note with same name exists",
         {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdNew,
         "   ",
         "Missing Data",
         "You must specify a name for your note",
         {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdChange, "Milk", "", "", {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdChange,
         "Tea",
         "Cannot Add Item",
         "A note with same name or voice command exists",
         {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdChange,
         " ",
         "Missing Data",
         "You must have a short name for your note",
         {"Tea", "tea", "Milk"}},
        {&frmNotes::cmdChange, "Oat milk", "", "", {"Tea", "tea", "Oat milk"}},
    };
    session([&](frmNotes& f) {
        for (const auto& step : steps) {
            SCOPED_TRACE(step.name.toStdString());
            fp.dialogs.boxes.clear();
            type(f.txtName, step.name);
            click(f.*step.button);
            if (step.title.isEmpty()) {
                EXPECT_TRUE(fp.dialogs.boxes.empty());
            } else {
                ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
                const fakes::Box& box = fp.dialogs.boxes.front();
                EXPECT_EQ(box.icon, BoxIcon::Warning);
                EXPECT_EQ(box.buttons, BoxButtons::OK);
                EXPECT_EQ(box.title, step.title);
                EXPECT_EQ(box.text, step.text);
            }
            EXPECT_EQ(entries(f.List1), step.list);
        }
        EXPECT_EQ(f.WorkingNotes[3].NoteName, QStringLiteral("Oat milk"));
        QTest::mouseMove(f.List1->viewport(), f.List1->visualItemRect(f.List1->item(0)).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return f.List1->toolTip() == "Oat milk"; }));
    });
}

TEST_F(FrmNotesTest, RemovingSelectsTheNoteBeforeAndRemovingAllLeavesNoFile)
{
    std::vector<NoteRecord> notes;
    for (const char* name : {"A", "B", "C", "D"})
        notes.push_back(note(name, QStringLiteral("about ") + name, NoteRow{1, 1}));
    WriteNotesFile(notesFile(), notes);
    const struct {
        int row;
        BoxAnswer answer;
        QStringList list;
        QString selected; // shown in the name box after the removal
    } steps[] = {
        {1, BoxAnswer::No, {"A", "B", "C", "D"}, "B"}, {1, BoxAnswer::Yes, {"A", "C", "D"}, "A"},
        {0, BoxAnswer::Yes, {"C", "D"}, "C"},          {1, BoxAnswer::Yes, {"C"}, "C"},
        {0, BoxAnswer::Yes, {}, "New Note"},
    };
    session([&](frmNotes& f) {
        for (const auto& step : steps) {
            SCOPED_TRACE(step.selected.toStdString());
            clickEntry(f.List1, step.row);
            fp.dialogs.answers = {step.answer};
            click(f.cmdDel);
            EXPECT_EQ(entries(f.List1), step.list);
            EXPECT_EQ(f.txtName->text(), step.selected);
            EXPECT_EQ(int(f.WorkingNotes.size()), step.list.size() + 1);
        }
        ASSERT_EQ(fp.dialogs.boxes.size(), std::size(steps));
        EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Warning);
        EXPECT_EQ(fp.dialogs.boxes[0].buttons, BoxButtons::YesNo);
        EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Confirmation"));
        EXPECT_EQ(fp.dialogs.boxes[0].text, QStringLiteral("Are you sure?"));
        EXPECT_EQ(f.txtNote->toPlainText(), QString());
        EXPECT_FALSE(f.cmdChange->isEnabled());
        EXPECT_FALSE(f.cmdDel->isEnabled());
        click(f.cmdClose);
    });
    EXPECT_FALSE(QFile::exists(notesFile()));
}

TEST_F(FrmNotesTest, AStoredPositionTheListLacksIsReportedOncePerFieldAndTheRestLoads)
{
    WriteNotesFile(notesFile(),
                   {note("Gym", "", {1, 2, 2, 5, 2026, 5, 30, 1}),
                    // A Daily note keeps the month that the list held when it was saved.
                    note("Pills", "Two", {1, 1, 10, 3, 2025, 7, 45, 1}),
                    note("Broken", "Three", {1, 7, 0, 4, 2024, 12, 10, 2})});
    const QString error = QStringLiteral("Error in your Notes file. To start a new one, delete '") +
                          notesFile() + QStringLiteral("'");
    const struct {
        int row;
        std::size_t boxes;
        Shown shown;
    } steps[] = {
        {1,
         1,
         {"Pills", "Two", true, "Daily", "Tuesday", "3", "2025", "08", "45", "PM",
          "Daily at 08:45 PM"}},
        // The kind, the hour and AM or PM are bad; the list of weekdays stays.
        {2,
         3,
         {"Broken", "Three", true, "Daily", "Sunday", "4", "2024", "08", "10", "PM",
          "Daily at 08:10 PM"}},
    };
    session([&](frmNotes& f) {
        EXPECT_EQ(f.ListEvery->count(), 7);
        for (const auto& step : steps) {
            SCOPED_TRACE(step.row);
            fp.dialogs.boxes.clear();
            clickEntry(f.List1, step.row);
            ASSERT_EQ(fp.dialogs.boxes.size(), step.boxes);
            for (const fakes::Box& box : fp.dialogs.boxes) {
                EXPECT_EQ(box.icon, BoxIcon::Critical);
                EXPECT_EQ(box.title, QStringLiteral("Notes File Error"));
                EXPECT_EQ(box.text, error);
            }
            EXPECT_EQ(shown(f), step.shown);
        }
    });
}

enum class Target { Kind, Every, Hour, Minute, Day, Year };

QWidget* widget(frmNotes& f, Target target)
{
    switch (target) {
    case Target::Kind:
        return f.ListOn;
    case Target::Every:
        return f.ListEvery;
    case Target::Hour:
        return f.ListHour;
    case Target::Minute:
        return f.ListMin;
    case Target::Day:
        return f.txtDay;
    case Target::Year:
        return f.txtYear;
    }
    return nullptr;
}

TEST_F(FrmNotesTest, TheScheduleBoxesFilterTypingAndReplaceWhatCannotBe)
{
    struct Action {
        Target target;
        QString keys;
        bool leave = true;
    };
    const struct {
        const char* what;
        std::vector<Action> actions;
        Target box;
        QString text;
        QString selected; // null: not looked at
        int beeps;
        QString review; // null: not looked at
    } cases[] = {
        {"13", {{Target::Hour, "13", false}}, Target::Hour, "02", "02", 0, {}},
        {"0 hour", {{Target::Hour, "0", false}}, Target::Hour, "02", "02", 0, {}},
        {"7 left", {{Target::Hour, "7"}}, Target::Hour, "07", {}, 0, {}},
        {"60", {{Target::Minute, "60", false}}, Target::Minute, "25", "25", 0, {}},
        {"00", {{Target::Minute, "00"}}, Target::Minute, "00", {}, 0, {}},
        {"letter hour", {{Target::Hour, "x", false}}, Target::Hour, "02", {}, 1, {}},
        {"letter minute", {{Target::Minute, "x", false}}, Target::Minute, "25", {}, 1, {}},
        {"letter day", {{Target::Day, "x", false}}, Target::Day, "22", {}, 1, {}},
        {"letter year", {{Target::Year, "x", false}}, Target::Year, "2026", {}, 1, {}},
        {"Backspace", {{Target::Year, "19\b", false}}, Target::Year, "1", {}, 0, {}},
        {"98", {{Target::Year, "98"}}, Target::Year, "1998", {}, 0, {}},
        {"2", {{Target::Year, "2"}}, Target::Year, "2", {}, 0, {}},
        {"199", {{Target::Year, "199"}}, Target::Year, "199", {}, 0, {}},
        {"emptied year", {{Target::Year, "98\b\b", false}}, Target::Year, "2026", {}, 0, {}},
        {"30 February",
         {{Target::Every, "February"}, {Target::Day, "30"}},
         Target::Day,
         "22",
         {},
         0,
         "Tuesday, February 3, 2026 at 02:25 PM"},
        {"29 February, leap year",
         {{Target::Every, "February"}, {Target::Year, "2028"}, {Target::Day, "29"}},
         Target::Day,
         "29",
         {},
         0,
         "Tuesday, February 29, 2028 at 02:25 PM"},
        {"29 February",
         {{Target::Every, "February"}, {Target::Year, "2027"}, {Target::Day, "29"}},
         Target::Day,
         "22",
         {},
         0,
         "Tuesday, February 2, 2027 at 02:25 PM"},
        // Wednesday stands for April, which has no 31st.
        {"Weekly day 31",
         {{Target::Every, "January"},
          {Target::Day, "31"},
          {Target::Kind, "Weekly"},
          {Target::Every, "Wednesday"}},
         Target::Day,
         "22",
         {},
         0,
         "Weekly on Sundays at 02:25 PM"},
        {"Monthly",
         {{Target::Kind, "Monthly"}, {Target::Day, "5"}},
         Target::Day,
         "5",
         {},
         0,
         "Monthly on 5, at 02:25 PM"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const int beeps = fp.dialogs.beeps;
        session([&](frmNotes& f) {
            for (const Action& action : c.actions) {
                QWidget* box = widget(f, action.target);
                if (action.target == Target::Kind || action.target == Target::Every) {
                    pick(static_cast<QComboBox*>(box), action.keys);
                    continue;
                }
                type(box, action.keys);
                if (action.leave)
                    leave();
            }
            QLineEdit* box = lineEditOf(widget(f, c.box));
            EXPECT_EQ(box->text(), c.text);
            if (!c.selected.isNull()) {
                EXPECT_EQ(box->selectedText(), c.selected);
            }
            if (!c.review.isNull()) {
                EXPECT_EQ(f.LabelReview->text(), c.review);
            }
        });
        EXPECT_EQ(fp.dialogs.beeps - beeps, c.beeps);
    }
}

TEST_F(FrmNotesTest, AFileOfPartRecordsIsWrittenBackAsWholeRecords)
{
    const QByteArray whole = EncodeNoteRecord(note("One", "first", {1, 1})) +
                             EncodeNoteRecord(note("Two", "second", {0, 3, 0, 9}));
    const QByteArray tail = QByteArray("Three").leftJustified(300, ' ');
    const struct {
        int extra;
        QByteArray written;
    } cases[] = {
        {300, whole + tail.leftJustified(550, ' ') + QByteArray(16, '\0')},
        {200, whole},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.extra);
        QFile file(notesFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(whole + tail.left(c.extra));
        file.close();
        session([&](frmNotes& f) { click(f.cmdClose); });
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), c.written);
        file.close();
    }
}

TEST_F(FrmNotesTest, AFailedSaveOffersRetryAndCancelDropsTheEdits)
{
    app.AppPath = dir.path() + QStringLiteral("/missing");
    fp.dialogs.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    session([&](frmNotes& f) {
        click(f.cmdNew);
        click(f.cmdClose);
        EXPECT_FALSE(f.isVisible());
    });
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    for (const fakes::Box& box : fp.dialogs.boxes) {
        EXPECT_EQ(box.icon, BoxIcon::Critical);
        EXPECT_EQ(box.buttons, BoxButtons::RetryCancel);
        EXPECT_EQ(box.title, QStringLiteral("Cannot Open ") + notesFile());
    }
    EXPECT_TRUE(form().RemindTimer->isActive());
    EXPECT_EQ(app.ModalOpen, 0);
    // Only cmdClose brings the command group back.
    EXPECT_FALSE(character().Commands().Visible());
}

TEST_F(FrmNotesTest, AFileThatCannotBeReadIsNamedAndTheWindowStaysClosed)
{
    ASSERT_TRUE(QDir().mkdir(notesFile()));
    form().mnuQuorlReminders->trigger();
    EXPECT_TRUE(fp.modalWindows.isEmpty());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Critical);
    EXPECT_EQ(fp.dialogs.boxes[0].buttons, BoxButtons::OK);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Cannot Open ") + notesFile());
    EXPECT_EQ(app.ModalOpen, 0);
    EXPECT_TRUE(form().RemindTimer->isActive());
}

} // namespace
