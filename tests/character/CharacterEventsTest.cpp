#include "character/CharacterEvents.h"

#include "core/Controls.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>
#include <gtest/gtest.h>

struct CharacterEventsTest : CharacterFixture, ::testing::Test {
};

TEST_F(CharacterEventsTest, HidingPausesAReadingAndShowingAgainDoesNotResume)
{
    const std::pair<bool, QString> cases[] = {{true, "Quorl - Reading From Clip Board (Paused)"},
                                              {false, "Quorl - Reading /books/tale.txt (Paused)"}};
    for (const auto& [clip, title] : cases) {
        SCOPED_TRACE(title.toStdString());
        app.ReadingClip = clip;
        form().Timer2->start();
        form().cmdCont->setText("&Pause");
        form().cmdCont->setEnabled(true);
        form().cmdShow->setEnabled(false);
        setTag(form().mnuFileRead, clip ? "" : "1");
        form().ReadFileName = "/books/tale.txt";
        app.AnimateRead = clip ? "1" : "0";
        fp.agent->raiseHide();
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), "&Continue");
        EXPECT_EQ(form().windowTitle(), title);
        EXPECT_EQ(form().cmdShow->text(), "&Show");
        EXPECT_EQ(form().cmdShow->toolTip(), "Show Testy");
        EXPECT_TRUE(form().cmdShow->isEnabled());
        EXPECT_FALSE(form().mnuQuorlTime->isEnabled());
        EXPECT_FALSE(form().mnuQuorlDate->isEnabled());

        form().cmdCont->setEnabled(false);
        fp.agent->calls.clear();
        fp.agent->raiseShow();
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), "&Continue");
        EXPECT_TRUE(form().cmdCont->isEnabled());
        EXPECT_EQ(form().cmdShow->text(), "&Hide");
        EXPECT_EQ(form().cmdShow->toolTip(), "Hide Testy");
        EXPECT_TRUE(form().mnuQuorlTime->isEnabled());
        EXPECT_EQ(fp.agent->calls, clip ? QStringList{"Play(Read)"} : QStringList{});
    }
    // Outside a reading, showing plays nothing.
    CharacterFixture idle;
    idle.app.AnimateRead = "1";
    idle.form().cmdCont->setEnabled(false);
    idle.fp.agent->raiseShow();
    EXPECT_TRUE(idle.fp.agent->calls.isEmpty());
    EXPECT_FALSE(idle.form().cmdCont->isEnabled());
}

TEST_F(CharacterEventsTest, ShowButtonAsksForTheOppositeStateUnlessTheBalloonIsUp)
{
    cmdShow_Click(app);
    character().visible = false;
    cmdShow_Click(app);
    EXPECT_EQ(fp.agent->calls, (QStringList{"Hide()", "Show(0)"}));
    EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    EXPECT_EQ(form().cmdShow->text(), "&Show") << "the caption waits for the event";

    fp.agent->calls.clear();
    character().balloon.visible = true;
    cmdShow_Click(app);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, platform::BoxIcon::Information);
    EXPECT_EQ(fp.dialogs.boxes[0].title, "Information");
    EXPECT_EQ(fp.dialogs.boxes[0].text, "To stop him from speaking, click the right mouse button "
                                        "on the character and select 'Hide'.");
}

TEST_F(CharacterEventsTest, ClicksOnTheCharacter)
{
    const std::optional<QString> on = "1", off = "0", none;
    const struct {
        const char* name;
        QString id;
        int button;
        std::optional<QString> click1, click;
        bool reading, continueEnabled, spoken, paused;
    } cases[] = {
        {"left reads the clipboard", "G", 1, on, off, false, true, true, false},
        {"left, switch off", "G", 1, off, on, false, true, false, false},
        {"left, switch missing", "G", 1, none, on, false, true, false, false},
        {"another character", "H", 1, on, on, true, true, false, false},
        {"right pauses a reading", "G", 2, off, on, true, true, false, true},
        {"right, continue disabled", "G", 2, off, on, true, false, false, false},
        {"right, no reading", "G", 2, on, on, false, true, false, false},
        {"right, switch missing", "G", 2, on, none, true, true, false, false},
        {"middle", "G", 4, on, on, true, true, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        CharacterFixture f;
        f.fp.clipboard.text = "From the clipboard";
        if (c.click1)
            f.fp.store.setValue("Click1", *c.click1);
        if (c.click)
            f.fp.store.setValue("Click", *c.click);
        if (c.reading) {
            f.app.ReadingClip = true;
            f.form().Timer2->start();
            f.form().cmdCont->setEnabled(c.continueEnabled);
        }
        f.fp.agent->raiseClick(c.button, c.id);
        EXPECT_EQ(!f.fp.agent->spoken().isEmpty(), c.spoken);
        EXPECT_EQ(c.reading && !f.form().Timer2->isActive(), c.paused);
    }
}

TEST_F(CharacterEventsTest, IdleStartClosesTheBalloonAndShutdownEndsWithNothingSaved)
{
    character().balloon.visible = true;
    fp.agent->raiseIdleStart();
    EXPECT_FALSE(character().balloon.visible);

    EXPECT_THROW(fp.agent->raiseShutdown(), fakes::ProgramEnded);
    EXPECT_EQ(fp.process.ends, 1);
    EXPECT_TRUE(fp.store.writes.isEmpty());
}
