#include "character/SayText.h"
#include "core/Controls.h"
#include "core/ReadingState.h"
#include "fakes/LoadedProgram.h"
#include "reading/ReadingControls.h"
#include "reading/ReadingEngine.h"
#include "reading/ReadingPieces.h"
#include "reading/RemoveIgnored.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <map>

using platform::AgentRequest;

struct ReadingFixture : fakes::LoadedProgram {
    ReadingFixture()
    {
        character().visible = true;
        app.AnimateRead = "0";
    }

    // Picks the file in the open dialog of "Read Text File".
    void readFile(const QByteArray& bytes)
    {
        QFile file(dir.filePath("text.txt"));
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        file.close();
        fp.dialogs.files.push_back(file.fileName());
        mnuFileRead_Click(app);
    }

    // Speaks the first line of a file and leaves its request in progress.
    void readFirstLine(const QByteArray& bytes)
    {
        readFile(bytes);
        Timer2_Timer(app);
        fp.agent->lastRequest()->status = platform::AgentRequest::InProgress;
    }

    // The texts spoken, without the character tag in front.
    QStringList spoken() const
    {
        QStringList texts = fp.agent->spoken();
        return texts.replaceInStrings(QStringLiteral("\\chr=\"normal\"\\"), QString());
    }

    // Ticks until the reading stops, at most 100000 times; returns the ticks run.
    int tickToEnd()
    {
        int ticks = 0;
        for (; form().Timer2->isActive() && ticks < 100000; ++ticks)
            Timer2_Timer(app);
        return ticks;
    }

    QTemporaryDir dir;
};

struct ReadingTest : ReadingFixture, ::testing::Test {
    bool idle()
    {
        return Tag(form().mnuFileRead) == "0" && !app.ReadingClip && !form().Timer2->isActive() &&
               form().windowTitle() == "Quorl" && form().mnuFileRead->isEnabled() &&
               !form().cmdStop->isEnabled() && !form().cmdNext->isEnabled() &&
               !form().cmdCont->isEnabled() && !app.ReadingFile.isOpen();
    }

    // The lengths of the pieces the whole text is cut into; the pieces must join to it.
    QList<int> pieces(const QString& text)
    {
        app.LineBuffer = text;
        QList<int> lengths;
        QString joined;
        while (!app.LineBuffer.isEmpty()) {
            form().ChunkText.clear();
            TakeChunk(app);
            lengths << int(form().ChunkText.size());
            joined += form().ChunkText;
        }
        EXPECT_EQ(joined, text);
        return lengths;
    }
};

TEST_F(ReadingTest, TakeChunkCutsAtTheFirstSpaceAfter180OrAt200)
{
    const auto spaceAt = [](int length, int at) {
        return QString(at - 1, 'x') + ' ' + QString(length - at, 'x');
    };
    const std::pair<QString, QList<int>> cases[] = {
        {QString(200, 'x'), {200}},    {spaceAt(201, 181), {181, 20}},
        {spaceAt(201, 180), {200, 1}}, {spaceAt(201, 200), {200, 1}},
        {spaceAt(195, 190), {190, 5}},
    };
    for (const auto& [text, lengths] : cases)
        EXPECT_EQ(pieces(text), lengths) << text.size() << ", space at " << text.indexOf(' ') + 1;
}

TEST_F(ReadingTest, ScaleAndAdvanceProgress)
{
    const std::tuple<qint64, int, float> cases[] = {
        // An empty source keeps a range, so that the bar stays empty instead of busy.
        {0, 1, 1.0f},
        {32700, 32700, 1.0f},
        {32701, 32701, 32700.0f / 32701.0f},
        // The scale, rounded to a 32-bit float, falls a hair short for this length.
        {100000000, 32700, 0.000327f},
    };
    for (const auto& [length, maximum, scale] : cases) {
        ScaleProgress(app, length, 1);
        EXPECT_EQ(form().ProgressBar1->maximum(), maximum) << length;
        EXPECT_FLOAT_EQ(app.ProgressScale, scale) << length;
    }

    form().ProgressBar1->setMaximum(500);
    app.ProgressScale = 2.0f;
    app.ProgressPos = 0.0f;
    const std::tuple<int, float, int> steps[] = {
        {100, 200.0f, 200}, {120, 440.0f, 440}, {100, 640.0f, 500}, {0, 640.0f, 500}};
    for (const auto& [chunk, pos, value] : steps) {
        form().ChunkText = QString(chunk, 'x');
        AdvanceProgress(app);
        EXPECT_FLOAT_EQ(app.ProgressPos, pos);
        EXPECT_EQ(form().ProgressBar1->value(), value);
    }
}

TEST_F(ReadingTest, RemoveIgnored)
{
    // The box checked, the two characters, the text and what is left of it. A space is no
    // character, and the last text runs past the points where the event queue runs.
    const std::tuple<bool, QString, QString, QString, QString> cases[] = {
        {false, ">", "*", "> a * b", "> a * b"},
        {true, "a", "A", "Aa banana", " bnn"},
        {true, "a", "", "Aa banana", "A bnn"},
        {true, "", "", "any text", "any text"},
        {true, " ", "", "a b", "a b"},
        {true, "*", "", QString("*abcdef").repeated(430), QString("abcdef").repeated(430)},
    };
    for (const auto& [on, first, second, text, result] : cases) {
        form().chkIgnore->setChecked(on);
        form().txtIgnore->setText(first);
        form().txtIgnore1->setText(second);
        EXPECT_EQ(RemoveIgnored(app, text), result)
            << on << first.toStdString() << second.toStdString();
    }
}

TEST_F(ReadingTest, OneLineFileStartsAndEndsOnTheTickThatSpeaksIt)
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
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading " + dir.filePath("text.txt"));

    Timer2_Timer(app);
    EXPECT_EQ(spoken(), QStringList({"Hello there."}));
    EXPECT_TRUE(idle());
    EXPECT_EQ(fp.agent->calls.back(), "Play(ReadReturn)");
}

TEST_F(ReadingTest, CancelledDialogFileThatCannotBeOpenedOrFailingAnimationEndTheReading)
{
    const QList<QObject*> reenabled{form().cmdOptions, form().mnuFileOptions, form().mnuQuorlApp};
    for (QObject* control : reenabled)
        control->setProperty("enabled", false);
    mnuFileRead_Click(app);
    for (QObject* control : reenabled)
        EXPECT_TRUE(control->property("enabled").toBool()) << control->objectName().toStdString();
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    fp.dialogs.files.push_back(dir.filePath("gone.txt"));
    mnuFileRead_Click(app);
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"File Error"});
    EXPECT_EQ(Tag(form().mnuFileRead), "0");
    EXPECT_FALSE(form().Timer2->isActive() || app.ReadingFile.isOpen());

    app.AnimateRead = "1";
    fp.agent->failCalls("Play(Read)", platform::RuntimeError(-2147213303, platform::AgentSource,
                                                             "No such animation"));
    readFile("one\n");
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    EXPECT_EQ(fp.dialogs.boxes[1],
              (fakes::Box{platform::BoxIcon::Critical, platform::BoxButtons::OK, "File Error",
                          "No such animation"}));
    EXPECT_FALSE(form().Timer2->isActive() || app.ReadingFile.isOpen());
}

TEST_F(ReadingTest, LinesBlankLinesAndAnEmptyFile)
{
    // Trailing blank lines end with the last text.
    const std::tuple<QByteArray, QStringList, int> cases[] = {
        {"one\r\n\r\n   \r\n\r\ntwo", {"one", "two"}, 2},
        {"one\n\n  \n\n", {"one"}, 2},
        {"\n\n\nthree", {"three"}, 1},
        {"", {}, 1},
    };
    for (const auto& [bytes, lines, ticks] : cases) {
        SCOPED_TRACE(bytes.constData());
        fp.agent->calls.clear();
        readFile(bytes);
        EXPECT_EQ(tickToEnd(), ticks);
        EXPECT_EQ(spoken(), lines);
        EXPECT_TRUE(idle());
    }
}

TEST_F(ReadingTest, TickWaitsForTheLastRequest)
{
    const std::pair<int, bool> cases[] = {
        {AgentRequest::Complete, true},    {AgentRequest::Failed, true},
        {AgentRequest::Interrupted, true}, {AgentRequest::Pending, false},
        {AgentRequest::InProgress, false},
    };
    for (const auto& [status, feeds] : cases) {
        fp.agent->calls.clear();
        app.LastRequest.reset();
        readFirstLine("one\ntwo\n");
        fp.agent->lastRequest()->status = status;
        Timer2_Timer(app);
        EXPECT_EQ(spoken().size(), feeds ? 2 : 1) << status;
        cmdStop_Click(app);
    }
}

// A line longer than the reader's segments is cut exactly as if it had been read whole,
// and its last piece ends the splitting.
TEST_F(ReadingTest, HugeLineWithoutSpaces)
{
    QString line;
    for (int i = 0; i < 150011; ++i)
        line += QChar(i % 3 == 0 ? 0x00E9 : u'a' + i % 26);
    readFile(line.toUtf8() + "\r\nafter\r\n");
    EXPECT_EQ(tickToEnd(), 752) << "one piece a tick";
    EXPECT_TRUE(idle());
    EXPECT_EQ(spoken().mid(0, 751).join(QString()), line);
    EXPECT_EQ(spoken().mid(751), QStringList{"after"});
}

// Each ends short of its maximum: a file's line ends are not counted, and a text's bar is back
// at 0 on the tick of its last piece.
TEST_F(ReadingTest, ProgressOfALongTextAndOfALargeFileStaysWithinTheBar)
{
    QString text;
    for (int i = 0; text.size() < 40000; ++i)
        text += QString("%1 ").arg(i);
    text.truncate(40000);
    const QByteArray bytes = (QByteArray(99, 'x') + '\n').repeated(400);
    // The start, the bar's maximum, and the least and most its highest value may be.
    const std::tuple<std::function<void()>, int, int, int> cases[] = {
        {[&] { SayText(app, text, false); }, 32710, 32401, 32699},
        {[&] { readFile(bytes); }, 32701, 32001, 32701}};
    for (const auto& [start, maximum, lowest, highest] : cases) {
        SCOPED_TRACE(maximum);
        fp.agent->calls.clear();
        start();
        EXPECT_EQ(form().ProgressBar1->maximum(), maximum);
        EXPECT_EQ(form().windowTitle(), ReadingCaption(app));
        int peak = 0;
        while (form().Timer2->isActive()) {
            Timer2_Timer(app);
            peak = std::max(peak, form().ProgressBar1->value());
            EXPECT_EQ(form().txtText->toPlainText(), spoken().back());
        }
        EXPECT_GE(peak, lowest);
        EXPECT_LE(peak, highest);
        EXPECT_EQ(form().ProgressBar1->value(), 0);
        EXPECT_TRUE(idle());
        if (maximum == 32710) {
            EXPECT_EQ(spoken().join(QString()), text);
            EXPECT_NEAR(app.ProgressPos, 32700.0f, 1.0f);
        }
    }
}

TEST_F(ReadingTest, FailingTickIsReportedAndTheTimerRunsOn)
{
    readFile("one\ntwo\n");
    fp.agent->failCalls("Speak(", platform::RuntimeError(-2147024809, platform::AgentSource,
                                                         "The parameter is incorrect."));
    Timer2_Timer(app);
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Unknown Error"});
    EXPECT_TRUE(fp.dialogs.texts("Unknown Error").value(0).contains("( 2 ) -2147024809"));
    EXPECT_TRUE(form().Timer2->isActive());
}

// Clicks and timer events run while a piece is cut.
TEST_F(ReadingTest, EventsDuringATick)
{
    app.AnimateRead = "1";
    readFile(QByteArray(1000, 'a') + "\nsecond\n");
    QTimer::singleShot(0, &form(), [this] { Timer2_Timer(app); });
    Timer2_Timer(app);
    EXPECT_EQ(spoken().size(), 1) << "a tick ran inside another";

    QTimer::singleShot(0, &form(), [this] { cmdStop_Click(app); });
    Timer2_Timer(app);
    EXPECT_TRUE(idle());
    EXPECT_EQ(spoken().size(), 2) << "the piece cut when Stop came still goes out";
    EXPECT_EQ(fp.agent->calls.filter("ReadReturn").size(), 1);
}

TEST_F(ReadingTest, WithoutACharacterTheRoutinesRaiseError91)
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

// The pause's captions are checked where hiding the character pauses.
TEST_F(ReadingTest, ContinueRestoresTheCaptionsAndKeepsWaitingForThePiece)
{
    app.AnimateRead = "1";
    SayText(app, QString(300, 'x'), false);
    const platform::Request waitedFor = app.LastRequest;
    cmdCont_Click(app);
    fp.agent->calls.clear();
    cmdCont_Click(app);
    EXPECT_TRUE(form().Timer2->isActive());
    EXPECT_EQ(form().cmdCont->text(), "&Pause");
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading From Clip Board");
    EXPECT_EQ(fp.agent->calls, QStringList({"Play(Read)"}));
    EXPECT_EQ(app.LastRequest, waitedFor) << "the animation's request is kept";
}

// Steps: p = the pause button, n = Next, f = the speech in progress finishes, t = a tick,
// e = ticks to the end of the reading. Every case reads to the end of its file.
TEST_F(ReadingTest, PauseAndNext)
{
    const std::tuple<QByteArray, const char*, QString, QStringList> cases[] = {
        {"one\ntwo\n", "nt", "two", {"one"}},
        {"one\ntwo\n", "pnfpt", "two", {"one", "two"}},
        // Each Next skips a line, and empty lines with it.
        {"one\ntwo\n\n\nfour\nfive\n", "nnftt", "four", {"one", "four", "five"}},
        // Next during a long line drops its rest.
        {QByteArray(500, 'a') + "\nnext\n", "nfe", "next", {QString(200, 'a'), "next"}},
    };
    for (const auto& [bytes, steps, shownAfterNext, lines] : cases) {
        SCOPED_TRACE(steps);
        ReadingFixture f;
        f.readFirstLine(bytes);
        QString textAfterNext;
        const std::map<char, std::function<void()>> act{
            {'p', [&] { cmdCont_Click(f.app); }},
            {'n',
             [&] {
                 cmdNext_Click(f.app);
                 textAfterNext = f.form().txtText->toPlainText();
             }},
            {'f', [&] { f.fp.agent->lastRequest()->status = platform::AgentRequest::Complete; }},
            {'t', [&] { Timer2_Timer(f.app); }},
            {'e', [&] { f.tickToEnd(); }}};
        for (const char* step = steps; *step; ++step)
            std::invoke(act.at(*step));
        EXPECT_EQ(textAfterNext, shownAfterNext);
        EXPECT_EQ(f.spoken(), lines);
        EXPECT_FALSE(f.form().Timer2->isActive()) << "the reading has ended";
    }
}

TEST_F(ReadingTest, NextAtTheEndOfTheFile)
{
    readFirstLine("one\ntwo\n");
    cmdNext_Click(app);
    EXPECT_EQ(Tag(form().cmdNext), "1");
    cmdNext_Click(app);
    EXPECT_EQ(fp.dialogs.boxes,
              (std::vector<fakes::Box>{{platform::BoxIcon::Warning, platform::BoxButtons::OK,
                                        "Finished Reading", "End of File"}}));
    EXPECT_EQ(form().txtText->toPlainText(), "two");
    EXPECT_EQ(app.LineBuffer.toString(), "two");
}

TEST_F(ReadingTest, TalkReadsTheTextBox)
{
    const QString line = R"(Speak(\chr="normal"\Hello))";
    form().txtText->setPlainText("Hello");
    for (const bool animate : {true, false}) {
        fp.agent->calls.clear();
        app.AnimateRead = animate ? "1" : "0";
        cmdTalk_Click(app);
        EXPECT_EQ(fp.agent->calls, animate ? QStringList({"Play(Read)", line, "Play(ReadReturn)"})
                                           : QStringList{line});
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    }
}

TEST_F(ReadingTest, ReadFromClipboardAndTheIgnoreBox)
{
    form().chkIgnore->setChecked(true);
    form().txtIgnore->setText(">");
    form().txtIgnore1->setText("*");
    fp.clipboard.text = "> quoted *text*";
    Read_Click(app);
    EXPECT_EQ(spoken(), QStringList{" quoted text"});
    for (const bool on : {true, false}) {
        form().chkIgnore->setChecked(on);
        chkIgnore_Click(app);
        EXPECT_EQ(form().txtIgnore->isEnabled(), on);
        EXPECT_EQ(form().txtIgnore1->isEnabled(), on);
    }
}
