#include "ReadingFixture.h"
#include "character/SayText.h"
#include "core/Controls.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gtest/gtest.h>

namespace
{

using platform::AgentRequest;

struct ReadingControlsTest : ReadingFixture, ::testing::Test {
    // Speaks the first line of a file and leaves its request in progress.
    void readFirstLine(const QByteArray& bytes)
    {
        readFile(bytes);
        Timer2_Timer(app);
        fp.agent->lastRequest()->status = AgentRequest::InProgress;
    }
    void finishSpeech() { fp.agent->lastRequest()->status = AgentRequest::Complete; }
};

TEST_F(ReadingControlsTest, PauseAndContinueCaptions)
{
    const QString longText = QString(300, QLatin1Char('x'));
    struct Case {
        const char* name;
        bool clip;
        QString reading;
    };
    const Case cases[] = {
        {"file", false, QStringLiteral("Quorl - Reading ")},
        {"clipboard", true, QStringLiteral("Quorl - Reading From Clip Board")},
    };
    for (const Case& c : cases) {
        app.AnimateRead = QStringLiteral("1");
        if (c.clip) {
            SayText(app, longText, false);
        } else {
            readFile("one\ntwo\n");
        }
        const QString reading = c.clip ? c.reading : c.reading + form().ReadFileName;
        const platform::Request waitedFor = app.LastRequest;

        cmdCont_Click(app);
        EXPECT_FALSE(form().Timer2->isActive()) << c.name;
        EXPECT_EQ(form().cmdCont->text(), QStringLiteral("&Continue")) << c.name;
        EXPECT_EQ(form().windowTitle(), reading + QStringLiteral(" (Paused)")) << c.name;

        fp.agent->calls.clear();
        cmdCont_Click(app);
        EXPECT_TRUE(form().Timer2->isActive()) << c.name;
        EXPECT_EQ(form().cmdCont->text(), QStringLiteral("&Pause")) << c.name;
        EXPECT_EQ(form().windowTitle(), reading) << c.name;
        EXPECT_EQ(fp.agent->calls, QStringList({"Play(Read)"})) << c.name;
        EXPECT_EQ(app.LastRequest, waitedFor) << c.name << ": the animation's request is kept";
        cmdStop_Click(app);
    }
}

TEST_F(ReadingControlsTest, PauseLetsThePieceEndAndFeedsNoMore)
{
    readFirstLine("one\ntwo\n");
    cmdCont_Click(app);
    finishSpeech();
    EXPECT_EQ(spoken(), QStringList({"one"}));
    cmdCont_Click(app);
    Timer2_Timer(app);
    EXPECT_EQ(spoken(), QStringList({"one", "two"}));
}

TEST_F(ReadingControlsTest, NextOntoTheLastLineDuringSpeech)
{
    readFirstLine("one\ntwo\n");
    cmdNext_Click(app);
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("two"));
    EXPECT_EQ(Tag(form().cmdNext), QStringLiteral("1"));
    Timer2_Timer(app);
    EXPECT_FALSE(form().Timer2->isActive()) << "the reading ends on the next tick";
    EXPECT_EQ(spoken(), QStringList({"one"}));
}

TEST_F(ReadingControlsTest, NextOntoTheLastLineWhilePaused)
{
    readFirstLine("one\ntwo\n");
    cmdCont_Click(app);
    cmdNext_Click(app);
    finishSpeech();
    cmdCont_Click(app);
    Timer2_Timer(app);
    EXPECT_EQ(spoken(), QStringList({"one", "two"}));
    EXPECT_FALSE(form().Timer2->isActive());
}

TEST_F(ReadingControlsTest, EachNextSkipsOneLineAndEmptyLines)
{
    readFirstLine("one\ntwo\n\n\nfour\nfive\n");
    cmdNext_Click(app);
    cmdNext_Click(app);
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("four"));
    finishSpeech();
    Timer2_Timer(app);
    Timer2_Timer(app);
    EXPECT_EQ(spoken(), QStringList({"one", "four", "five"}));
}

TEST_F(ReadingControlsTest, NextDuringALongLineDropsItsRest)
{
    readFirstLine(QByteArray(500, 'a') + "\nnext\n");
    cmdNext_Click(app);
    finishSpeech();
    tickToEnd();
    EXPECT_EQ(spoken(), QStringList({QString(200, QLatin1Char('a')), "next"}));
}

TEST_F(ReadingControlsTest, NextAtTheEndOfTheFile)
{
    readFirstLine("one\ntwo\n");
    cmdNext_Click(app);
    cmdNext_Click(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Warning);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Finished Reading"));
    EXPECT_EQ(fp.dialogs.boxes[0].text, QStringLiteral("End of File"));
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("two"));
    EXPECT_EQ(app.LineBuffer.toString(), QStringLiteral("two"));
}

TEST_F(ReadingControlsTest, TalkReadsTheTextBox)
{
    struct Case {
        const char* name;
        QString animate;
        QString text;
        QStringList calls;
    };
    const QString line = QStringLiteral("Speak(\\chr=\"normal\"\\Hello)");
    const Case cases[] = {
        {"empty box, animation on", "1", "", {"Play(Read)", "Play(ReadReturn)"}},
        {"animation on", "1", "Hello", {"Play(Read)", line, "Play(ReadReturn)"}},
        {"animation off", "0", "Hello", {line}},
    };
    for (const Case& c : cases) {
        fp.agent->calls.clear();
        app.AnimateRead = c.animate;
        form().txtText->setPlainText(c.text);
        cmdTalk_Click(app);
        EXPECT_EQ(fp.agent->calls, c.calls) << c.name;
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest()) << c.name;
    }
}

TEST_F(ReadingControlsTest, LongTextBoxBecomesAClipboardReading)
{
    form().txtText->setPlainText(QString(201, QLatin1Char('y')));
    cmdTalk_Click(app);
    EXPECT_EQ(form().windowTitle(), QStringLiteral("Quorl - Reading From Clip Board"));
    EXPECT_TRUE(app.ReadingClip);
    EXPECT_FALSE(form().cmdNext->isEnabled());
}

TEST_F(ReadingControlsTest, ReadFromClipboard)
{
    form().chkIgnore->setChecked(true);
    form().txtIgnore->setText(QStringLiteral(">"));
    form().txtIgnore1->setText(QStringLiteral("*"));
    struct Case {
        const char* name;
        QString clipboard;
        QStringList spoken;
    };
    const Case cases[] = {
        {"empty clipboard", "", {}},
        {"ignored characters dropped", "> quoted *text*", {" quoted text"}},
    };
    for (const Case& c : cases) {
        fp.agent->calls.clear();
        fp.clipboard.text = c.clipboard;
        Read_Click(app);
        EXPECT_EQ(spoken(), c.spoken) << c.name;
    }
}

TEST_F(ReadingControlsTest, IgnoreBoxFollowsItsCheckBox)
{
    for (const bool on : {true, false}) {
        form().chkIgnore->setChecked(on);
        chkIgnore_Click(app);
        EXPECT_EQ(form().txtIgnore->isEnabled(), on);
        EXPECT_EQ(form().txtIgnore1->isEnabled(), on);
    }
}

} // namespace
