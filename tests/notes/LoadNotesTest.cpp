#include "notes/LoadNotes.h"

#include "notes/NoteRecord.h"
#include "notes/NoteSchedule.h"
#include "notes/NotesFixture.h"

#include <QDir>
#include <QTimer>

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

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
    using Shown = std::tuple<BoxIcon, BoxButtons, QString, QString>;
    const Shown retry = {BoxIcon::Critical, BoxButtons::RetryCancel, cannotOpen, {}},
                notLoaded = {BoxIcon::Warning, BoxButtons::OK, "Notes File",
                             "Notes file has not been loaded"},
                overflow = {BoxIcon::Critical, BoxButtons::OK, "Unknown Error", "Overflow"};
    const struct {
        const char* what;
        std::function<void()> setup;
        std::vector<NoteRow> table;
        bool timer;
        std::deque<BoxAnswer> answers = {};
        std::vector<Shown> boxes = {};
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
        std::vector<Shown> boxes;
        for (const fakes::Box& b : fp.dialogs.boxes)
            boxes.emplace_back(b.icon, b.buttons, b.title,
                               b.title == cannotOpen ? QString() : b.text.section('\r', 0, 0));
        EXPECT_EQ(boxes, c.boxes);
    }
    EXPECT_TRUE(errorBoxes().first().contains("( Unknown ( 8 ) 6, Quorl)"));
}

} // namespace
