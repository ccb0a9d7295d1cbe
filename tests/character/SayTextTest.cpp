#include "character/SayText.h"

#include "character/CharacterFixture.h"
#include "core/Controls.h"

#include <QAction>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

struct SayTextTest : CharacterFixture, ::testing::Test {
    QStringList calls() const { return fp.agent->calls; }
};

TEST_F(SayTextTest, SpacesOnlySayNothingAndTouchNothing)
{
    character().visible = false;
    form().cmdStop->setEnabled(true);
    form().txtText->setPlainText(QStringLiteral("kept"));
    for (const QString& text : {QString(), QStringLiteral(" "), QStringLiteral("     ")}) {
        SayText(app, text, false);
        EXPECT_TRUE(calls().isEmpty());
        EXPECT_EQ(app.LastRequest, nullptr);
        EXPECT_TRUE(form().cmdStop->isEnabled()) << "the reading controls were updated";
        EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("kept"));
    }
}

TEST_F(SayTextTest, LineIsTagsAndTextAsTheyStand)
{
    struct Case {
        const char* name;
        bool whisper;
        bool hideBalloon;
        QString text;
        QString line;
    };
    const QString voice = QStringLiteral("\\pit=110\\\\spd=150\\\\vol=900\\");
    const QString normal = QStringLiteral("\\chr=\"normal\"\\");
    const QString whisper = QStringLiteral("\\chr=\"whisper\"\\");
    const Case cases[] = {
        {"plain", false, false, QStringLiteral("Hello."),
         normal + voice + QStringLiteral("Hello.")},
        {"whisper", true, false, QStringLiteral("Hello."),
         whisper + voice + QStringLiteral("Hello.")},
        {"hidden balloon", false, true, QStringLiteral("Hello."),
         normal + voice + QStringLiteral("\\map=\"Hello.\"=\"\"\\")},
        {"whisper, hidden balloon", true, true, QStringLiteral("Hi"),
         whisper + voice + QStringLiteral("\\map=\"Hi\"=\"\"\\")},
        {"backslash and quote unchanged", false, false, QStringLiteral("a \\b\\ \"c\""),
         normal + voice + QStringLiteral("a \\b\\ \"c\"")},
        {"leading blanks kept", false, false, QStringLiteral("  x "),
         normal + voice + QStringLiteral("  x ")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        fp.agent->calls.clear();
        form().chkWhisper->setChecked(c.whisper);
        form().chkBalloon->setChecked(c.hideBalloon);
        SayText(app, c.text, true);
        EXPECT_EQ(calls(), QStringList{QStringLiteral("Speak(") + c.line + QLatin1Char(')')});
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    }
}

TEST_F(SayTextTest, HiddenCharacterIsShownBeforeSpeaking)
{
    character().visible = false;
    SayText(app, QStringLiteral("Hi"), true);
    EXPECT_EQ(calls(), (QStringList{QStringLiteral("Show(0)"),
                                    QStringLiteral("Speak(") + Tags + QStringLiteral("Hi)")}));
}

TEST_F(SayTextTest, TextBoxTakesTheTextOnlyWhenNotKept)
{
    form().txtText->setPlainText(QStringLiteral("old"));
    SayText(app, QStringLiteral("new"), true);
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("old"));
    SayText(app, QStringLiteral("new"), false);
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("new"));
}

TEST_F(SayTextTest, TwoHundredCharactersAreSpokenAtOnce)
{
    const QString text(200, QLatin1Char('a'));
    SayText(app, text, false);
    EXPECT_EQ(fp.agent->spoken(), QStringList{Tags + text});
    EXPECT_FALSE(app.ReadingClip);
    EXPECT_FALSE(form().Timer2->isActive());
}

TEST_F(SayTextTest, LongerTextStartsAPiecewiseReading)
{
    const QString text(201, QLatin1Char('a'));
    form().txtText->setPlainText(QStringLiteral("old"));
    app.ProgressPos = 7.0f;
    SayText(app, text, false);
    EXPECT_TRUE(fp.agent->spoken().isEmpty());
    EXPECT_TRUE(app.ReadingClip);
    EXPECT_EQ(app.LineBuffer.toString(), text);
    EXPECT_TRUE(form().Timer2->isActive());
    EXPECT_EQ(form().windowTitle(), QStringLiteral("Quorl - Reading From Clip Board"));
    EXPECT_EQ(form().ProgressBar1->maximum(), 201);
    EXPECT_EQ(app.ProgressScale, 1.0f);
    EXPECT_EQ(app.ProgressPos, 0.0f);
    EXPECT_EQ(form().txtText->toPlainText(), QStringLiteral("old"));
}

TEST_F(SayTextTest, VeryLongTextScalesTheProgressBar)
{
    struct Case {
        int length;
        int maximum;
        float scale;
    };
    for (const Case& c : {Case{32700, 32700, 1.0f}, Case{65400, 32710, 0.5f}}) {
        SCOPED_TRACE(c.length);
        SayText(app, QString(c.length, QLatin1Char('a')), true);
        EXPECT_EQ(form().ProgressBar1->maximum(), c.maximum);
        EXPECT_EQ(app.ProgressScale, c.scale);
    }
}

TEST_F(SayTextTest, DuringAFileReadingEveryLengthIsSpoken)
{
    setTag(form().mnuFileRead, QStringLiteral("1"));
    const QString text(500, QLatin1Char('b'));
    SayText(app, text, false);
    EXPECT_EQ(fp.agent->spoken(), QStringList{Tags + text});
    EXPECT_FALSE(app.ReadingClip);
    EXPECT_EQ(form().txtText->toPlainText(), text);
}

TEST_F(SayTextTest, ReadingControlsFollowTheStateBeforeTheCall)
{
    SayText(app, QString(300, QLatin1Char('c')), true);
    EXPECT_TRUE(form().Read->isEnabled()) << "controls were updated after the reading began";
}

} // namespace
