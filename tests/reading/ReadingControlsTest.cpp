#include "ReadingFixture.h"
#include "character/SayText.h"
#include "core/Controls.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <functional>
#include <gtest/gtest.h>
#include <map>

struct ReadingControlsTest : ReadingFixture, ::testing::Test {
};

TEST_F(ReadingControlsTest, PauseAndContinueCaptions)
{
    for (const bool clip : {false, true}) {
        SCOPED_TRACE(clip ? "clipboard" : "file");
        app.AnimateRead = "1";
        if (clip)
            SayText(app, QString(300, 'x'), false);
        else
            readFile("one\ntwo\n");
        const QString reading =
            clip ? "Quorl - Reading From Clip Board" : "Quorl - Reading " + form().ReadFileName;
        const platform::Request waitedFor = app.LastRequest;

        cmdCont_Click(app);
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), "&Continue");
        EXPECT_EQ(form().windowTitle(), reading + " (Paused)");

        fp.agent->calls.clear();
        cmdCont_Click(app);
        EXPECT_TRUE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), "&Pause");
        EXPECT_EQ(form().windowTitle(), reading);
        EXPECT_EQ(fp.agent->calls, QStringList({"Play(Read)"}));
        EXPECT_EQ(app.LastRequest, waitedFor) << "the animation's request is kept";
        cmdStop_Click(app);
    }
}

// Steps: p = the pause button, n = Next, f = the speech in progress finishes, t = a tick,
// e = ticks to the end of the reading. Every case reads to the end of its file.
TEST_F(ReadingControlsTest, PauseAndNext)
{
    const QString a200(200, 'a');
    const struct {
        const char* name;
        QByteArray bytes;
        const char* steps;
        QString textAfterNext;
        QStringList spoken;
    } cases[] = {
        {"pause lets the piece end, continue reads on", "one\ntwo\n", "pfpt", "", {"one", "two"}},
        {"onto the last line during speech", "one\ntwo\n", "nt", "two", {"one"}},
        {"onto the last line while paused", "one\ntwo\n", "pnfpt", "two", {"one", "two"}},
        {"each skips one line and empty lines",
         "one\ntwo\n\n\nfour\nfive\n",
         "nnftt",
         "four",
         {"one", "four", "five"}},
        {"during a long line drops its rest",
         QByteArray(500, 'a') + "\nnext\n",
         "nfe",
         "next",
         {a200, "next"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ReadingFixture f;
        f.readFirstLine(c.bytes);
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
        for (const char* step = c.steps; *step; ++step)
            std::invoke(act.at(*step));
        EXPECT_EQ(textAfterNext, c.textAfterNext);
        EXPECT_EQ(f.spoken(), c.spoken);
        EXPECT_FALSE(f.form().Timer2->isActive()) << "the reading has ended";
    }
}

TEST_F(ReadingControlsTest, NextAtTheEndOfTheFile)
{
    readFirstLine("one\ntwo\n");
    cmdNext_Click(app);
    EXPECT_EQ(Tag(form().cmdNext), "1");
    cmdNext_Click(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Warning);
    EXPECT_EQ(fp.dialogs.boxes[0].title, "Finished Reading");
    EXPECT_EQ(fp.dialogs.boxes[0].text, "End of File");
    EXPECT_EQ(form().txtText->toPlainText(), "two");
    EXPECT_EQ(app.LineBuffer.toString(), "two");
}

TEST_F(ReadingControlsTest, TalkReadsTheTextBox)
{
    const QString line = R"(Speak(\chr="normal"\Hello))";
    const struct {
        QString animate, text;
        QStringList calls;
    } cases[] = {
        {"1", "", {"Play(Read)", "Play(ReadReturn)"}},
        {"1", "Hello", {"Play(Read)", line, "Play(ReadReturn)"}},
        {"0", "Hello", {line}},
    };
    for (const auto& c : cases) {
        fp.agent->calls.clear();
        app.AnimateRead = c.animate;
        form().txtText->setPlainText(c.text);
        cmdTalk_Click(app);
        EXPECT_EQ(fp.agent->calls, c.calls) << c.animate.toStdString() << c.text.toStdString();
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    }
    // A long text becomes a clipboard reading.
    form().txtText->setPlainText(QString(201, 'y'));
    cmdTalk_Click(app);
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading From Clip Board");
    EXPECT_TRUE(app.ReadingClip);
    EXPECT_FALSE(form().cmdNext->isEnabled());
}

TEST_F(ReadingControlsTest, ReadFromClipboardAndTheIgnoreBox)
{
    form().chkIgnore->setChecked(true);
    form().txtIgnore->setText(">");
    form().txtIgnore1->setText("*");
    const std::pair<QString, QStringList> cases[] = {{"", {}},
                                                     {"> quoted *text*", {" quoted text"}}};
    for (const auto& [clipboard, spoken] : cases) {
        fp.agent->calls.clear();
        fp.clipboard.text = clipboard;
        Read_Click(app);
        EXPECT_EQ(this->spoken(), spoken) << clipboard.toStdString();
    }
    for (const bool on : {true, false}) {
        form().chkIgnore->setChecked(on);
        chkIgnore_Click(app);
        EXPECT_EQ(form().txtIgnore->isEnabled(), on);
        EXPECT_EQ(form().txtIgnore1->isEnabled(), on);
    }
}
