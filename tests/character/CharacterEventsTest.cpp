#include "character/CharacterEvents.h"

#include "character/CharacterFixture.h"
#include "core/Controls.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

using platform::BoxIcon;

namespace
{

struct CharacterEventsTest : CharacterFixture, ::testing::Test {
    void startClipReading()
    {
        app.ReadingClip = true;
        form().Timer2->start();
        form().cmdCont->setText(QStringLiteral("&Pause"));
        form().cmdCont->setEnabled(true);
        form().cmdShow->setEnabled(false);
        form().setWindowTitle(QStringLiteral("Quorl - Reading From Clip Board"));
    }
};

TEST_F(CharacterEventsTest, HidingPausesAReadingWithTheRightCaption)
{
    struct Case {
        bool clip;
        QString title;
    };
    for (const Case& c :
         {Case{true, QStringLiteral("Quorl - Reading From Clip Board (Paused)")},
          Case{false, QStringLiteral("Quorl - Reading /books/tale.txt (Paused)")}}) {
        SCOPED_TRACE(c.title.toStdString());
        startClipReading();
        app.ReadingClip = c.clip;
        setTag(form().mnuFileRead, c.clip ? QString() : QStringLiteral("1"));
        form().ReadFileName = QStringLiteral("/books/tale.txt");
        fp.agent->raiseHide();
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), QStringLiteral("&Continue"));
        EXPECT_EQ(form().windowTitle(), c.title);
        EXPECT_EQ(form().cmdShow->text(), QStringLiteral("&Show"));
        EXPECT_EQ(form().cmdShow->toolTip(), QStringLiteral("Show Testy"));
        EXPECT_TRUE(form().cmdShow->isEnabled());
        EXPECT_FALSE(form().mnuQuorlTime->isEnabled());
        EXPECT_FALSE(form().mnuQuorlDate->isEnabled());
    }
}

TEST_F(CharacterEventsTest, ShowingAgainDoesNotResume)
{
    for (const char* animate : {"0", "1"}) {
        SCOPED_TRACE(animate);
        startClipReading();
        app.AnimateRead = QLatin1String(animate);
        fp.agent->raiseHide();
        form().cmdCont->setEnabled(false);
        fp.agent->calls.clear();
        fp.agent->raiseShow();
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), QStringLiteral("&Continue"));
        EXPECT_TRUE(form().cmdCont->isEnabled());
        EXPECT_EQ(form().cmdShow->text(), QStringLiteral("&Hide"));
        EXPECT_EQ(form().cmdShow->toolTip(), QStringLiteral("Hide Testy"));
        EXPECT_TRUE(form().mnuQuorlTime->isEnabled());
        const QStringList expected = animate == QStringLiteral("1")
                                         ? QStringList{QStringLiteral("Play(Read)")}
                                         : QStringList{};
        EXPECT_EQ(fp.agent->calls, expected);
    }
}

TEST_F(CharacterEventsTest, ShowingOutsideAReadingPlaysNothing)
{
    app.AnimateRead = QStringLiteral("1");
    form().cmdCont->setEnabled(false);
    fp.agent->raiseShow();
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_FALSE(form().cmdCont->isEnabled());
}

TEST_F(CharacterEventsTest, ShowButtonAsksForTheOppositeState)
{
    cmdShow_Click(app);
    character().visible = false;
    cmdShow_Click(app);
    EXPECT_EQ(fp.agent->calls, (QStringList{QStringLiteral("Hide()"), QStringLiteral("Show(0)")}));
    EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    EXPECT_EQ(form().cmdShow->text(), QStringLiteral("&Show")) << "the caption waits for the event";
}

TEST_F(CharacterEventsTest, ShowButtonWhileTheBalloonIsUpOnlyExplains)
{
    character().balloon.visible = true;
    cmdShow_Click(app);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Information);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Information"));
    EXPECT_EQ(fp.dialogs.boxes[0].text,
              QStringLiteral("To stop him from speaking, click the right mouse button on the "
                             "character and select 'Hide'."));
}

TEST_F(CharacterEventsTest, ClicksOnTheCharacter)
{
    struct Case {
        const char* name;
        QString id;
        int button;
        std::optional<QString> click1, click;
        bool reading;
        bool spoken;
        bool paused;
    };
    const std::optional<QString> on = QStringLiteral("1");
    const std::optional<QString> off = QStringLiteral("0");
    const Case cases[] = {
        {"left reads the clipboard", QStringLiteral("G"), 1, on, off, false, true, false},
        {"left, switch off", QStringLiteral("G"), 1, off, on, false, false, false},
        {"left, switch missing", QStringLiteral("G"), 1, std::nullopt, on, false, false, false},
        {"another character", QStringLiteral("H"), 1, on, on, true, false, false},
        {"right pauses a reading", QStringLiteral("G"), 2, off, on, true, false, true},
        {"right, no reading", QStringLiteral("G"), 2, on, on, false, false, false},
        {"right, switch missing", QStringLiteral("G"), 2, on, std::nullopt, true, false, false},
        {"middle", QStringLiteral("G"), 4, on, on, true, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CharacterFixture f;
        f.fp.clipboard.text = QStringLiteral("From the clipboard");
        if (c.click1)
            f.fp.store.setValue(QStringLiteral("Click1"), *c.click1);
        if (c.click)
            f.fp.store.setValue(QStringLiteral("Click"), *c.click);
        if (c.reading) {
            f.app.ReadingClip = true;
            f.form().Timer2->start();
            f.form().cmdCont->setEnabled(true);
        }
        f.fp.agent->raiseClick(c.button, c.id);
        EXPECT_EQ(!f.fp.agent->spoken().isEmpty(), c.spoken);
        EXPECT_EQ(c.reading && !f.form().Timer2->isActive(), c.paused);
    }
}

TEST_F(CharacterEventsTest, RightClickNeedsAnEnabledContinueButton)
{
    fp.store.setValue(QStringLiteral("Click"), QStringLiteral("1"));
    startClipReading();
    form().cmdCont->setEnabled(false);
    fp.agent->raiseClick(2);
    EXPECT_TRUE(form().Timer2->isActive());
}

TEST_F(CharacterEventsTest, IdleStartClosesTheBalloon)
{
    character().balloon.visible = true;
    fp.agent->raiseIdleStart();
    EXPECT_FALSE(character().balloon.visible);
}

TEST_F(CharacterEventsTest, ShutdownEndsAtOnceWithNothingSaved)
{
    EXPECT_THROW(fp.agent->raiseShutdown(), fakes::ProgramEnded);
    EXPECT_EQ(fp.process.ends, 1);
    EXPECT_TRUE(fp.store.writes.isEmpty());
}

} // namespace
