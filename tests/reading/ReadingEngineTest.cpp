#include "ReadingFixture.h"
#include "character/SayText.h"
#include "core/Controls.h"

#include <QAction>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <gtest/gtest.h>

using platform::AgentRequest;

struct ReadingEngineTest : ReadingFixture, ::testing::Test {
    bool idle()
    {
        return Tag(form().mnuFileRead) == "0" && !app.ReadingClip && !form().Timer2->isActive() &&
               form().windowTitle() == "Quorl" && form().mnuFileRead->isEnabled() &&
               !form().cmdStop->isEnabled() && !form().cmdNext->isEnabled() &&
               !form().cmdCont->isEnabled();
    }

    // Ticks to the end; the highest value the bar showed. The text box shows each piece.
    int tickToEndWatchingTheBar()
    {
        int highest = 0;
        while (form().Timer2->isActive()) {
            Timer2_Timer(app);
            highest = std::max(highest, form().ProgressBar1->value());
            EXPECT_EQ(form().txtText->toPlainText(), spoken().back());
        }
        return highest;
    }
};

TEST_F(ReadingEngineTest, OneLineFileStartsAndEndsOnTheTickThatSpeaksIt)
{
    app.AnimateRead = "1";
    fp.agent->character()->visible = false;
    readFile("Hello there.\r\n");
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 1u);
    EXPECT_EQ(fp.dialogs.fileRequests[0].filter, "Text Files (*.txt) |*.txt|All Files (*.*) |*.*");
    EXPECT_EQ(fp.dialogs.fileRequests[0].title, "Open Text File to Read..");
    EXPECT_EQ(fp.agent->calls, QStringList({"Play(Read)", "Show(0)"}));
    EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    EXPECT_TRUE(form().Timer2->isActive());
    EXPECT_EQ(Tag(form().mnuFileRead), "1");
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading " + form().ReadFileName);
    EXPECT_TRUE(form().ReadFileName.endsWith("text.txt"));

    Timer2_Timer(app);
    EXPECT_EQ(spoken(), QStringList({"Hello there."}));
    EXPECT_TRUE(idle());
    EXPECT_EQ(fp.agent->calls.back(), "Play(ReadReturn)");
    EXPECT_EQ(form().txtText->toPlainText(), "Hello there.");
    EXPECT_FALSE(app.ReadingFile.isOpen());
}

// On a window of its own: the wiring holds these entries disabled while their windows are
// missing, and the routine must free them all the same.
TEST(ReadingEngineAloneTest, CancelledDialogFreesTheOptions)
{
    fakes::FakePlatform fp;
    App app(fp.platform);
    app.Agent1 = fp.platform.createAgent();
    app.MainForm = std::make_unique<frmMain>(app);
    frmMain& f = *app.MainForm;
    f.cmdOptions->setEnabled(false);
    f.mnuFileOptions->setEnabled(false);
    f.mnuQuorlApp->setEnabled(false);
    mnuFileRead_Click(app);
    EXPECT_TRUE(f.cmdOptions->isEnabled());
    EXPECT_TRUE(f.mnuFileOptions->isEnabled());
    EXPECT_TRUE(f.mnuQuorlApp->isEnabled());
    EXPECT_FALSE(f.Timer2->isActive());
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(ReadingEngineTest, FileThatCannotBeOpenedOrAFailingAnimationEndsTheReading)
{
    fp.dialogs.files.push_back(dir.filePath("gone.txt"));
    mnuFileRead_Click(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Critical);
    EXPECT_EQ(fp.dialogs.boxes[0].title, "File Error");
    EXPECT_EQ(fp.dialogs.boxes[0].text, "File not found");
    EXPECT_EQ(Tag(form().mnuFileRead), "0");
    EXPECT_FALSE(form().Timer2->isActive());
    EXPECT_FALSE(app.ReadingFile.isOpen());

    app.AnimateRead = "1";
    fp.agent->failCalls("Play(Read)", platform::RuntimeError(-2147213303, platform::AgentSource,
                                                             "No such animation"));
    readFile("one\n");
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    EXPECT_EQ(fp.dialogs.boxes[1].text, "No such animation");
    EXPECT_FALSE(app.ReadingFile.isOpen());
    EXPECT_FALSE(form().Timer2->isActive());
}

TEST_F(ReadingEngineTest, LinesBlankLinesAndAnEmptyFile)
{
    struct Case {
        const char* name;
        QByteArray bytes;
        QStringList spoken;
        int ticks;
    };
    const Case cases[] = {
        {"blank lines skipped", "one\r\n\r\n   \r\n\r\ntwo", {"one", "two"}, 2},
        {"trailing blank lines end with the last text", "one\n\n  \n\n", {"one"}, 2},
        {"blank first lines", "\n\n\nthree", {"three"}, 1},
        {"empty file", "", {}, 1},
    };
    for (const Case& c : cases) {
        fp.agent->calls.clear();
        readFile(c.bytes);
        EXPECT_EQ(tickToEnd(), c.ticks) << c.name;
        EXPECT_EQ(spoken(), c.spoken) << c.name;
        EXPECT_TRUE(idle()) << c.name;
    }
}

TEST_F(ReadingEngineTest, TickWaitsForTheLastRequest)
{
    const struct {
        int status;
        bool feeds;
    } cases[] = {
        {AgentRequest::Complete, true},    {AgentRequest::Failed, true},
        {AgentRequest::Interrupted, true}, {AgentRequest::Pending, false},
        {AgentRequest::InProgress, false},
    };
    for (const auto& c : cases) {
        fp.agent->calls.clear();
        app.LastRequest.reset();
        readFile("one\ntwo\n");
        Timer2_Timer(app);
        fp.agent->lastRequest()->status = c.status;
        Timer2_Timer(app);
        EXPECT_EQ(spoken().size(), c.feeds ? 2 : 1) << c.status;
        cmdStop_Click(app);
    }
}

// A line longer than the reader's segments is cut exactly as if it had been read whole,
// and its last piece ends the splitting.
TEST_F(ReadingEngineTest, HugeLineWithoutSpaces)
{
    QString line;
    for (int i = 0; i < 150011; ++i)
        line += QChar(i % 3 == 0 ? 0x00E9 : u'a' + i % 26);
    readFile(line.toUtf8() + "\r\nafter\r\n");
    EXPECT_EQ(tickToEnd(), 752) << "one piece a tick";
    EXPECT_EQ(form().Splitting, 0);
    EXPECT_TRUE(idle());
    const QStringList pieces = spoken();
    ASSERT_EQ(pieces.size(), 752);
    for (qsizetype i = 0; i < 750; ++i)
        ASSERT_EQ(pieces[i].size(), 200) << i;
    EXPECT_EQ(pieces[750].size(), 11);
    EXPECT_EQ(pieces.mid(0, 751).join(QString()), line);
    EXPECT_EQ(pieces.back(), "after");
}

TEST_F(ReadingEngineTest, StopInALongLineThenANewFileStartsAtItsFirstLine)
{
    readFile(QByteArray(1000, 'a') + "\nold second\n", "old.txt");
    Timer2_Timer(app);
    Timer2_Timer(app);
    EXPECT_EQ(form().Splitting, 1);
    cmdStop_Click(app);
    EXPECT_TRUE(idle());

    fp.agent->calls.clear();
    readFile("new first\nnew second\n", "new.txt");
    tickToEnd();
    EXPECT_EQ(spoken(), QStringList({"new first", "new second"}));
}

TEST_F(ReadingEngineTest, ProgressOfALargeFileStaysWithinTheBar)
{
    QByteArray bytes;
    while (bytes.size() < 40000)
        bytes += QByteArray(99, 'x') + '\n';
    bytes.truncate(40000);
    readFile(bytes);
    EXPECT_EQ(form().ProgressBar1->maximum(), 32701);
    EXPECT_FLOAT_EQ(app.ProgressScale, 0.8175f);
    const int highest = tickToEndWatchingTheBar();
    // Line ends are not counted, so the bar ends short of its maximum.
    EXPECT_GT(highest, 32000);
    EXPECT_LE(highest, 32701);
    EXPECT_EQ(form().ProgressBar1->value(), 0);
}

TEST_F(ReadingEngineTest, LongTextIsReadInPiecesWithItsOwnMargin)
{
    QString text;
    for (int i = 0; text.size() < 40000; ++i)
        text += QString("%1 ").arg(i);
    text.truncate(40000);
    SayText(app, text, false);
    EXPECT_EQ(form().ProgressBar1->maximum(), 32710);
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading From Clip Board");
    const int highest = tickToEndWatchingTheBar();
    EXPECT_EQ(spoken().join(QString()), text);
    // Stop puts the bar back to 0 on the tick of the last piece.
    EXPECT_NEAR(app.ProgressPos, 32700.0f, 1.0f);
    EXPECT_LT(highest, 32700);
    EXPECT_GT(highest, 32400);
    EXPECT_TRUE(idle());
}

TEST_F(ReadingEngineTest, FailingTickIsReportedAndTheTimerRunsOn)
{
    readFile("one\ntwo\n");
    fp.agent->failCalls("Speak(", platform::RuntimeError(-2147024809, platform::AgentSource,
                                                         "The parameter is incorrect."));
    Timer2_Timer(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].title, "Unknown Error");
    EXPECT_TRUE(fp.dialogs.boxes[0].text.contains("( 2 ) -2147024809"))
        << fp.dialogs.boxes[0].text.toStdString();
    EXPECT_TRUE(form().Timer2->isActive());
}

// Clicks and timer events run while a piece is cut.
TEST_F(ReadingEngineTest, EventsDuringATick)
{
    app.AnimateRead = "1";
    readFile(QByteArray(1000, 'a') + "\nsecond\n");
    QMetaObject::invokeMethod(
        &form(), [this] { Timer2_Timer(app); }, Qt::QueuedConnection);
    Timer2_Timer(app);
    EXPECT_EQ(spoken().size(), 1) << "a tick ran inside another";

    QMetaObject::invokeMethod(
        &form(), [this] { cmdStop_Click(app); }, Qt::QueuedConnection);
    Timer2_Timer(app);
    EXPECT_TRUE(idle());
    EXPECT_EQ(spoken().size(), 2) << "the piece cut when Stop came still goes out";
    EXPECT_EQ(fp.agent->calls.filter("ReadReturn").size(), 1);
}

TEST_F(ReadingEngineTest, WithoutACharacterTheRoutinesRaiseError91)
{
    app.AnimateRead = "1";
    app.Character = nullptr;
    const std::pair<const char*, void (*)(App&)> routines[] = {
        {"cmdTalk_Click", cmdTalk_Click},
        {"Read_Click", Read_Click},
        {"cmdCont_Click", cmdCont_Click},
        {"cmdStop_Click", cmdStop_Click},
    };
    for (const auto& [name, routine] : routines) {
        SCOPED_TRACE(name);
        try {
            routine(app);
            ADD_FAILURE() << "no error";
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.Number, 91);
        }
    }
    readFile("one\n");
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].text, "No character is loaded.");
    EXPECT_FALSE(form().FileReadingOn());
}
