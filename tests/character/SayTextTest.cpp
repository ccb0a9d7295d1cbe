#include "character/SayText.h"

#include "core/Controls.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

struct SayTextTest : CharacterFixture, ::testing::Test {
};

TEST_F(SayTextTest, SpacesOnlySayNothingAndTouchNothing)
{
    character().visible = false;
    form().cmdStop->setEnabled(true);
    form().txtText->setPlainText("kept");
    for (const QString text : {"", " ", "     "}) {
        SayText(app, text, false);
        EXPECT_TRUE(fp.agent->calls.isEmpty());
        EXPECT_EQ(app.LastRequest, nullptr);
        EXPECT_TRUE(form().cmdStop->isEnabled()) << "the reading controls were updated";
        EXPECT_EQ(form().txtText->toPlainText(), "kept");
    }
}

TEST_F(SayTextTest, LineIsTagsAndTextAsTheyStandAndAKeptTextBoxStays)
{
    const QString voice = R"(\pit=110\\spd=150\\vol=900\)";
    const QString normal = R"(\chr="normal"\)" + voice, whisper = R"(\chr="whisper"\)" + voice;
    const struct {
        bool whisper, hideBalloon, visible;
        QString text, calls;
    } cases[] = {
        {false, false, true, "Hello.", "Speak(" + normal + "Hello.)"},
        {true, false, true, "Hello.", "Speak(" + whisper + "Hello.)"},
        {false, true, true, "Hello.", "Speak(" + normal + R"(\map="Hello."=""\))"},
        {true, true, true, "Hi", "Speak(" + whisper + R"(\map="Hi"=""\))"},
        {false, false, true, R"(a \b\ "c")", "Speak(" + normal + R"(a \b\ "c"))"},
        {false, false, true, "  x ", "Speak(" + normal + "  x )"},
        // A hidden character is shown first.
        {false, false, false, "Hi", "Show(0) Speak(" + normal + "Hi)"},
    };
    form().txtText->setPlainText("old");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.calls.toStdString());
        fp.agent->calls.clear();
        character().visible = c.visible;
        form().chkWhisper->setChecked(c.whisper);
        form().chkBalloon->setChecked(c.hideBalloon);
        SayText(app, c.text, true);
        EXPECT_EQ(fp.agent->calls.join(' '), c.calls);
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
        EXPECT_EQ(form().txtText->toPlainText(), "old") << "a kept text box took the text";
    }
}

// Up to 200 characters, and any length during a file reading, are spoken at once.
TEST_F(SayTextTest, ShortTextOrAFileReadingIsSpokenAtOnce)
{
    for (const int length : {200, 500}) {
        fp.agent->calls.clear();
        setTag(form().mnuFileRead, length > 200 ? "1" : "0");
        const QString text(length, 'a');
        SayText(app, text, false);
        EXPECT_EQ(fp.agent->spoken(), QStringList{Tags + text});
        EXPECT_FALSE(app.ReadingClip);
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().txtText->toPlainText(), text);
    }
}

TEST_F(SayTextTest, LongerTextStartsAPiecewiseReading)
{
    const QString text(201, 'a');
    form().txtText->setPlainText("old");
    app.ProgressPos = 7.0f;
    SayText(app, text, false);
    EXPECT_TRUE(fp.agent->spoken().isEmpty());
    EXPECT_TRUE(app.ReadingClip);
    EXPECT_EQ(app.LineBuffer.toString(), text);
    EXPECT_TRUE(form().Timer2->isActive());
    EXPECT_EQ(form().windowTitle(), "Quorl - Reading From Clip Board");
    EXPECT_EQ(form().ProgressBar1->maximum(), 201);
    EXPECT_EQ(app.ProgressScale, 1.0f);
    EXPECT_EQ(app.ProgressPos, 0.0f);
    EXPECT_EQ(form().txtText->toPlainText(), "old");
    EXPECT_TRUE(form().Read->isEnabled()) << "controls were updated after the reading began";
}
