#include "notes/LoadNotes.h"

#include "notes/NotesFixture.h"

#include <QDir>
#include <QTimer>

namespace
{

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

class LoadNotesTest : public NotesFixture
{
protected:
    bool timerOn() const { return app.MainForm->RemindTimer->isActive(); }

    // What is left over from an earlier load.
    void leftOver()
    {
        app.NoteTable = {NoteRow{}, Reminder(1, 9, 0)};
        app.MainForm->RemindTimer->start();
    }

    void writeBytes(qint64 size)
    {
        QFile file(notesFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(size));
    }
};

TEST_F(LoadNotesTest, OnlyAReminderOfExactlyOneStartsTheTimer)
{
    const NoteRow on = Reminder(4, 9, 30, 11, 24);
    NoteRow off = on;
    off.Remind = 0;
    NoteRow two = on;
    two.Remind = 2;
    const struct {
        const char* what;
        std::function<void()> setup;
        std::vector<NoteRow> table;
        bool timer;
    } cases[] = {
        {"no file", [] {}, {NoteRow{}}, false},
        {"an empty file", [&] { writeBytes(0); }, {NoteRow{}}, false},
        {"no reminder of 1",
         [&] {
             WriteNotesFile(notesFile(), {Note("a", "", off), Note("b", "", two)});
         },
         {NoteRow{}, off, two},
         false},
        {"a reminder of 1 last",
         [&] {
             WriteNotesFile(notesFile(), {Note("a", "", two), Note("b", "x", on)});
         },
         {NoteRow{}, two, on},
         true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(notesFile());
        c.setup();
        leftOver();
        LoadNotes(app);
        EXPECT_EQ(app.NoteTable, c.table);
        EXPECT_EQ(timerOn(), c.timer);
        EXPECT_TRUE(fp.dialogs.boxes.empty());
    }
}

TEST_F(LoadNotesTest, FailuresLeaveTheTableEmptyAndTheTimerOff)
{
    const QString cannotOpen = QStringLiteral("Cannot Open ") + notesFile();
    const struct {
        const char* what;
        std::function<void()> setup;
        std::deque<BoxAnswer> answers;
        std::vector<std::pair<BoxIcon, QString>> boxes;
    } cases[] = {
        {"cannot be opened, Cancel",
         [&] { QDir().mkdir(notesFile()); },
         {BoxAnswer::Cancel},
         {{BoxIcon::Critical, cannotOpen}, {BoxIcon::Warning, "Notes File"}}},
        {"more records than a 16-bit count",
         [&] { writeBytes(32768LL * 566); },
         {},
         {{BoxIcon::Critical, "Unknown Error"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        QDir(notesFile()).removeRecursively();
        QFile::remove(notesFile());
        c.setup();
        leftOver();
        fp.dialogs.boxes.clear();
        fp.dialogs.answers = c.answers;
        LoadNotes(app);
        EXPECT_EQ(app.NoteTable, std::vector<NoteRow>(1));
        EXPECT_FALSE(timerOn());
        ASSERT_EQ(fp.dialogs.boxes.size(), c.boxes.size());
        for (std::size_t i = 0; i < c.boxes.size(); ++i) {
            const fakes::Box& box = fp.dialogs.boxes[i];
            EXPECT_EQ(box.icon, c.boxes[i].first);
            EXPECT_EQ(box.title, c.boxes[i].second);
            EXPECT_EQ(box.buttons,
                      box.title == cannotOpen ? BoxButtons::RetryCancel : BoxButtons::OK);
            if (box.icon == BoxIcon::Warning) {
                EXPECT_EQ(box.text, "Notes file has not been loaded");
            }
        }
    }
    EXPECT_EQ(fp.dialogs.boxes[0].text.left(fp.dialogs.boxes[0].text.indexOf('\r')), "Overflow");
    EXPECT_TRUE(errorBoxes().first().contains("( Unknown ( 8 ) 6, Quorl)"));
}

TEST_F(LoadNotesTest, RetryLoadsWhatIsThereByThen)
{
    QDir().mkdir(notesFile());
    fp.dialogs.answers = {BoxAnswer::Retry};
    fp.dialogs.onBox = [&](const fakes::Box&) {
        QDir(notesFile()).removeRecursively();
        WriteNotesFile(notesFile(), {Note("a", "", Reminder(1, 9, 0))});
    };
    LoadNotes(app);
    EXPECT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(app.NoteTable.size(), 2u);
    EXPECT_TRUE(timerOn());
}

} // namespace
