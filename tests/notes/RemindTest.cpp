#include "core/Controls.h"
#include "notes/NoteRecord.h"
#include "notes/NoteSchedule.h"
#include "notes/NotesFixture.h"
#include "notes/RemindTimer.h"
#include "notes/frmRemind.h"
#include "settings/frmOptions.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <random>
#include <set>

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

enum { Once, Daily, Weekly, Monthly, Yearly };

// The day on which the fake clock stands.
const QDate Sunday(2026, 11, 22);

QDateTime At(const QDate& date, int hour, int minute, int second = 0)
{
    return QDateTime(date, QTime(hour, minute, second), Qt::UTC);
}

TEST(NoteRecordTest, RecordsMatchTheirBytesOnDiskBothWays)
{
    // The text, then blanks to the width.
    const auto field = [](const QByteArray& text, int width) { return text.leftJustified(width); };
    const QByteArray onceIn1998 = QByteArray::fromHex("0100 0000 0b00 1f00 ce07 0b00 3b00 0100");
    const QByteArray extremes = QByteArray::fromHex("0200 ffff 0080 ff7f 0000 0000 0000 0000");
    const struct {
        const char* what;
        NoteRecord note;
        QByteArray bytes;
    } cases[] = {
        {"full-width fields with nothing after them",
         NoteRecord{{1, 0, 11, 31, 1998, 11, 59, 1}, QString(50, 'n'), QString(500, 't')},
         QByteArray(50, 'n') + QByteArray(500, 't') + onceIn1998},
        {"the single-byte code page and the ends of the number range",
         {{2, -1, -32768, 32767, 0, 0, 0, 0}, "Café – naïve €", "Grüß Gott"},
         field("Caf\xe9 \x96 na\xefve \x80", 50) + field("Gr\xfc\xdf Gott", 500) + extremes},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ASSERT_EQ(c.bytes.size(), NoteRecordLayout::Length);
        EXPECT_EQ(EncodeNoteRecord(c.note), c.bytes);
        EXPECT_EQ(DecodeNoteRecord(c.bytes), c.note);
    }
}

// Bytes missing from a last record read as blanks and zeros; under half a record is none.
TEST(NotesFileTest, AShortLastRecordIsFilledOrDropped)
{
    QTemporaryDir dir;
    const QString path = dir.filePath("Notes.cfg");
    const std::vector<NoteRecord> whole = {{{1, 1}, "One", "first"},
                                           {{0, 3, 0, 9}, "Two", "second"}};
    for (const int extra : {300, 200}) {
        WriteNotesFile(path, whole);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(QByteArray("Three").leftJustified(extra));
        file.close();
        std::vector<NoteRecord> read = whole;
        if (extra == 300)
            read.push_back({{}, "Three", ""});
        EXPECT_EQ(ReadNotesFile(path), read) << extra;
    }
}

// The window's tests run at one time of day; these are the hours around midnight and noon.
TEST(NoteScheduleTest, ThePresentTimeIsShownOnATwelveHourClock)
{
    using namespace NoteSchedule;
    const int hours[][3] = {{0, 11, 0}, {11, 10, 0}, {12, 11, 1}, {23, 10, 1}};
    for (const auto& [hour, hourIndex, amPm] : hours) {
        SCOPED_TRACE(hour);
        EXPECT_EQ(HourIndexOf(QTime(hour, 0)), hourIndex);
        EXPECT_EQ(AmPmIndexOf(QTime(hour, 0)), amPm);
    }
    // A minute box whose text is no entry has no position; the sentence shows that as it is.
    EXPECT_EQ(ReviewTime("12", -1, "PM"), QStringLiteral("12:-01 PM"));
}

using LoadNotesTest = NotesFixture;

TEST_F(LoadNotesTest, OnlyAReminderOfExactlyOneStartsTheTimerAndFailuresLeaveTheTableEmpty)
{
    const NoteRow on = Reminder(4, 9, 30, 11, 24);
    NoteRow off = on, two = on;
    off.Remind = 0;
    two.Remind = 2;
    const auto write = [this](const std::vector<NoteRecord>& records) {
        return [this, records] { WriteNotesFile(notesFile(), records); };
    };
    const auto unopenable = [this] { QDir().mkdir(notesFile()); };
    const auto oversized = [this] {
        QFile file(notesFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(32768LL * 566));
    };
    const auto mendedOnRetry = [&] {
        unopenable();
        fp.dialogs.onBox = [&](const fakes::Box&) {
            QDir(notesFile()).removeRecursively();
            write({{on, "a", ""}})();
        };
    };
    const QString cannotOpen = "Cannot Open " + notesFile();
    // Box texts up to their first line end, without the system's reason for a failed open.
    const fakes::Box retry = {BoxIcon::Critical, BoxButtons::RetryCancel, cannotOpen, {}},
                     notLoaded = {BoxIcon::Warning, BoxButtons::OK, "Notes File",
                                  "Notes file has not been loaded"},
                     overflow = {BoxIcon::Critical, BoxButtons::OK, "Unknown Error", "Overflow"};
    const struct {
        const char* what;
        std::function<void()> setup;
        std::vector<NoteRow> table;
        bool timer;
        std::deque<BoxAnswer> answers = {};
        std::vector<fakes::Box> boxes = {};
    } cases[] = {
        {"no file", [] {}, {{}}, false},
        {"no 1", write({{off, "a", ""}, {two, "b", ""}}), {{}, off, two}, false},
        {"a 1 last", write({{two, "a", ""}, {on, "b", "x"}}), {{}, two, on}, true},
        {"Cancel", unopenable, {{}}, false, {BoxAnswer::Cancel}, {retry, notLoaded}},
        {"Retry", mendedOnRetry, {{}, on}, true, {BoxAnswer::Retry}, {retry}},
        {"over 32767 records", oversized, {{}}, false, {}, {overflow}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        QDir(notesFile()).removeRecursively();
        QFile::remove(notesFile());
        c.setup();
        // What is left over from an earlier load.
        app.NoteTable = {NoteRow{}, Reminder(1, 9, 0)};
        app.MainForm->RemindTimer->start();
        fp.dialogs.boxes.clear();
        fp.dialogs.answers = c.answers;
        LoadNotes(app);
        fp.dialogs.onBox = nullptr;
        EXPECT_EQ(app.NoteTable, c.table);
        EXPECT_EQ(app.MainForm->RemindTimer->isActive(), c.timer);
        std::vector<fakes::Box> boxes = fp.dialogs.boxes;
        for (fakes::Box& b : boxes)
            b.text = b.title == cannotOpen ? QString() : b.text.section('\r', 0, 0);
        EXPECT_EQ(boxes, c.boxes);
    }
    EXPECT_TRUE(errorBoxes().first().contains("( Unknown ( 8 ) 6, Quorl)"));
}

// What the calendar walk of the next test does not reach: leap days of other years.
TEST(ReminderDueTest, TheTwentyNinthOfFebruaryComesInLeapYearsOnly)
{
    std::vector<QDate> days;
    for (QDate day(2023, 1, 1); day.year() <= 2028; day = day.addDays(1))
        if (ReminderDue(Reminder(Yearly, 9, 0, 1, 29), At(day, 9, 0)))
            days.push_back(day);
    EXPECT_EQ(days, (std::vector<QDate>{QDate(2024, 2, 29), QDate(2028, 2, 29)}));
}

// The oracle: the minute of the day at which a row is due on a day, or -1, worked out from the
// table of kinds with its own reading of the twelve-hour lists.
int DueMinute(const NoteRow& row, const QDate& day)
{
    static const int hours[2][12] = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0},
                                     {13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 12}};
    const bool date = QDate(day.year(), row.Every + 1, row.Day) == day;
    // Qt counts Monday to Sunday as 1 to 7; the table counts from Sunday, 0.
    const bool weekday = day.dayOfWeek() % 7 == row.Every;
    const bool due = (row.Kind == Once && row.Year == day.year() && date) || row.Kind == Daily ||
                     (row.Kind == Weekly && weekday) ||
                     (row.Kind == Monthly && day.day() == row.Day) || (row.Kind == Yearly && date);
    if (!due || row.Remind != 1 || row.MinuteIndex < 0 || row.MinuteIndex > 59)
        return -1;
    return hours[row.AmPm][row.HourIndex] * 60 + row.MinuteIndex;
}

TEST(ReminderDueTest, AYearMinuteByMinuteFiresWhatTheCalendarSays)
{
    constexpr int year = 2028;
    std::mt19937 random(2028);
    const auto pick = [&random](int low, int high) {
        return std::int16_t(std::uniform_int_distribution<int>(low, high)(random));
    };
    // A braced list is evaluated in order.
    std::vector<NoteRow> rows(1000);
    for (NoteRow& row : rows) {
        const std::int16_t remind = pick(0, 3) == 0 ? pick(-1, 2) : 1;
        row = {remind,      pick(-1, 5),  pick(-1, 12), pick(0, 32), pick(year - 1, year + 1),
               pick(0, 11), pick(-1, 60), pick(0, 1)};
    }
    std::set<std::pair<QDateTime, std::size_t>> expected, fired;
    for (QDate day(year, 1, 1); day.year() == year; day = day.addDays(1))
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (const int minute = DueMinute(rows[i], day); minute >= 0)
                expected.insert({At(day, minute / 60, minute % 60), i});
    const QDateTime end = At(QDate(year + 1, 1, 1), 0, 0);
    for (QDateTime now = At(QDate(year, 1, 1), 0, 0); now < end; now = now.addSecs(60))
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (ReminderDue(rows[i], now))
                fired.insert({now, i});

    EXPECT_GT(expected.size(), 10000u);
    EXPECT_TRUE(fired == expected) << fired.size() << " fired, " << expected.size() << " expected";
}

// The scheduler's pass with the reminder window: each modal window records the note it shows.
class RemindTimerTest : public NotesFixture
{
protected:
    RemindTimerTest()
    {
        fp.onModal = [this](QDialog&) {
            shown << RemindForm(app)->lblName->text();
            if (onFirstWindow && shown.size() == 1)
                onFirstWindow();
        };
    }

    QStringList shown;
    // Runs while the first modal reminder of a pass is up.
    std::function<void()> onFirstWindow;
};

TEST_F(RemindTimerTest, ModalRemindersComeInRecordOrderAtTheTimeEachTurnComes)
{
    const std::vector<NoteRecord> records = {
        {Reminder(Daily, 14, 25), "Due now", "a"},
        {Reminder(Once, 14, 25, 10, 22, 2026), "Also due now", "b"},
        {Reminder(Yearly, 14, 26, 10, 22), "Due next minute", "c"},
    };
    const QStringList both = {"Due now", "Also due now"};
    const QDateTime nextMinute = At(Sunday, 14, 26, 10);
    const struct {
        const char* what;
        std::function<void()> onFirstWindow;
        QStringList shown;
    } cases[] = {
        {"closed within the minute", nullptr, both},
        {"a tick meanwhile changes nothing", [&] { RemindTimer_Timer(app); }, both},
        {"held a minute", [&] { fp.clock.now = nextMinute; }, {"Due now", "Due next minute"}},
        {"the table replaced meanwhile", [&] { notes({records[0]}); }, {"Due now"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        notes(records);
        fp.clock.now = At(Sunday, 14, 25, 30);
        shown.clear();
        onFirstWindow = c.onFirstWindow;
        RemindTimer_Timer(app);
        EXPECT_EQ(shown, c.shown);
        EXPECT_TRUE(fp.dialogs.boxes.empty());
        EXPECT_FALSE(RemindForm(app));
        QTRY_VERIFY(app.WaitingReminders.empty());
        EXPECT_EQ(shown, c.shown);
    }
}

// A Weekly reminder comes on top of another modal window of the program.
TEST_F(RemindTimerTest, WeeklyHoldsNoPassAndANoteDueMeanwhileWaitsForItsWindow)
{
    QDialog other;
    other.setModal(true);
    other.show();
    ASSERT_EQ(QApplication::activeModalWidget(), &other);
    for (const bool closedInTime : {true, false}) {
        SCOPED_TRACE(closedInTime ? "closed within the minute" : "closed after the minute");
        notes({{Reminder(Weekly, 14, 25, 0), "Weekly", "w"},
               {Reminder(Daily, 14, 25), "Daily", "d"}});
        fp.clock.now = At(Sunday, 14, 25);
        shown.clear();

        RemindTimer_Timer(app);
        ASSERT_EQ(QApplication::activeModalWidget(), RemindForm(app));
        EXPECT_EQ(RemindForm(app)->lblName->text(), QStringLiteral("Weekly"));
        EXPECT_TRUE(shown.isEmpty());
        EXPECT_EQ(app.WaitingReminders, std::vector<int>{2});

        if (!closedInTime)
            fp.clock.now = At(Sunday, 14, 26);
        RemindForm(app)->cmdClose->click();
        QTRY_VERIFY(app.WaitingReminders.empty());
        EXPECT_EQ(shown, closedInTime ? QStringList{"Daily"} : QStringList{});
        EXPECT_FALSE(RemindForm(app));
        EXPECT_EQ(QApplication::activeModalWidget(), &other);
    }
}

class frmRemindTest : public NotesFixture
{
protected:
    frmRemindTest()
    {
        notes({{Reminder(1, 14, 25), "Dentist", "Bring the card"},
               {Reminder(1, 14, 25), "Bins", "Blue ones"}});
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
};

// Each window is closed by Enter: as it opens, or with the focus in the note's text.
TEST_F(frmRemindTest, SpeechFollowsTheSwitchesInItsOrderAndEnterCloses)
{
    const QStringList all = {"Time for it", "The time now is", "Today is", "Blue ones"};
    const struct {
        const char* what;
        QStringList on; // the switches set to 1; the others are not set
        QStringList spoken;
        QString firstCall;
        bool enterInText = false;
    } cases[] = {
        {"all off", {}, {}, {}, true},
        {"all on", {"ShowIfHidden", "NoteTime", "NoteDate", "ReadNote"}, all, "Show(1)"},
        {"time only", {"NoteTime"}, {"The time now is"}, "Show(0)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fp.store = fakes::FakeStore();
        fp.store.setValue("ReminderText", "Time for it");
        for (const QString& name : c.on)
            fp.store.setValue(name, "1");
        fp.agent->calls.clear();
        frmRemind* form = open();
        ASSERT_TRUE(form);
        const QStringList spoken = fp.agent->spoken();
        ASSERT_EQ(spoken.size(), c.spoken.size());
        for (int i = 0; i < spoken.size(); ++i)
            EXPECT_TRUE(spoken[i].contains(c.spoken[i])) << spoken[i].toStdString();
        // The character is shown before anything is said.
        EXPECT_EQ(fp.agent->calls.filter(QRegularExpression("^(Show|Speak)\\(")).value(0),
                  c.firstCall);
        EXPECT_EQ(std::pair(int(app.ModalOpen), character().Commands().Visible()),
                  std::pair(1, false));
        if (c.enterInText)
            form->txtNote->setFocus();
        QTest::keyClick(c.enterInText ? form->txtNote : form->focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(RemindForm(app));
        EXPECT_EQ(std::pair(int(app.ModalOpen), character().Commands().Visible()),
                  std::pair(0, true));
    }
}

TEST_F(frmRemindTest, AReadingInProgressStaysPausedAfterTheWindowHasClosed)
{
    form().Timer2->start();
    frmRemind* reminder = open();
    EXPECT_FALSE(form().Timer2->isActive());
    reminder->cmdClose->click();
    EXPECT_FALSE(form().Timer2->isActive());
    EXPECT_TRUE(form().windowTitle().endsWith(" (Paused)"));
}

TEST_F(frmRemindTest, ARecordThatIsNotThereClosesTheWindowWithABox)
{
    const struct {
        const char* what;
        std::function<void()> setup;
        QString number, title, text;
    } cases[] = {
        {"unopenable", [&] { QDir().mkdir(notesFile()); }, "1", "Unknown Error",
         "( Unknown ( 9 ) 75, Quorl)"},
        {"past the last record", [] {}, "3", "Error", "Error in Notes File"},
        {"deleted behind the program's back", [] {}, "1", "Error", "Error in Notes File"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        notes({{Reminder(1, 14, 25), "Dentist", "Bring the card"}});
        if (c.number == "1")
            QFile::remove(notesFile());
        c.setup();
        fp.dialogs.boxes.clear();
        EXPECT_FALSE(open(c.number));
        ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
        EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Critical);
        EXPECT_EQ(fp.dialogs.boxes[0].title, c.title);
        EXPECT_TRUE(fp.dialogs.boxes[0].text.contains(c.text));
        // The command group stays hidden until the next window that shows it closes.
        EXPECT_EQ(std::pair(int(app.ModalOpen), character().Commands().Visible()),
                  std::pair(0, false));
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
