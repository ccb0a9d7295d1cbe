#include "character/ApplyVoiceDefaults.h"
#include "character/CharacterEvents.h"
#include "character/SayText.h"
#include "character/VoicePanel.h"
#include "core/Controls.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QTimer>
#include <gtest/gtest.h>

// Speaking, the voice panel and the character's events. The balloon's hiding map is ClockTest's.
struct CharacterTest : CharacterFixture, ::testing::Test {
    QString tags() const { return app.PitchTag + app.SpeedTag + app.VolumeTag; }
};

TEST_F(CharacterTest, SpacesOnlySayNothingAndTouchNothing)
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

TEST_F(CharacterTest, LineIsTagsAndTextAsTheyStandAndAKeptTextBoxStays)
{
    const QString voice = R"(\pit=110\\spd=150\\vol=900\)";
    const QString normal = R"(\chr="normal"\)" + voice, whisper = R"(\chr="whisper"\)" + voice;
    const struct {
        bool whisper, visible;
        QString text, calls;
    } cases[] = {
        {false, true, "Hello.", "Speak(" + normal + "Hello.)"},
        {true, true, "Hello.", "Speak(" + whisper + "Hello.)"},
        {false, true, R"(a \b\ "c")", "Speak(" + normal + R"(a \b\ "c"))"},
        {false, true, "  x ", "Speak(" + normal + "  x )"},
        // A hidden character is shown first.
        {false, false, "Hi", "Show(0) Speak(" + normal + "Hi)"},
    };
    form().txtText->setPlainText("old");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.calls.toStdString());
        fp.agent->calls.clear();
        character().visible = c.visible;
        form().chkWhisper->setChecked(c.whisper);
        SayText(app, c.text, true);
        EXPECT_EQ(fp.agent->calls.join(' '), c.calls);
        EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
        EXPECT_EQ(form().txtText->toPlainText(), "old") << "a kept text box took the text";
    }
}

// Up to 200 characters, and any length during a file reading, are spoken at once; longer text
// starts a piecewise reading, which leaves the text box to the pieces.
TEST_F(CharacterTest, ShortTextOrAFileReadingIsSpokenAtOnceAndLongerTextIsRead)
{
    for (const int length : {200, 500, 201}) {
        fp.agent->calls.clear();
        setTag(form().mnuFileRead, length == 500 ? "1" : "0");
        form().txtText->setPlainText("old");
        app.ProgressPos = 7.0f;
        const QString text(length, 'a');
        SayText(app, text, false);
        const bool atOnce = length != 201;
        EXPECT_EQ(fp.agent->spoken(), atOnce ? QStringList{Tags + text} : QStringList());
        EXPECT_EQ(app.ProgressPos, atOnce ? 7.0f : 0.0f);
        EXPECT_EQ(form().txtText->toPlainText(), atOnce ? text : "old");
        if (atOnce) {
            EXPECT_FALSE(app.ReadingClip || form().Timer2->isActive());
        }
    }
    EXPECT_TRUE(form().Read->isEnabled()) << "controls were updated after the reading began";
}

TEST_F(CharacterTest, DefaultsTakeTheCharactersVoiceEvenBeyondTheSlidersAndTheTopVolume)
{
    form().sdrPitch->setValue(300);
    form().sdrSpeed->setValue(60);
    form().sdrVolume->setValue(10);
    character().pitch = 95;
    character().speed = 170;
    cmdDefaults_Click(app);
    EXPECT_EQ(form().sdrPitch->value(), 95);
    EXPECT_EQ(form().sdrSpeed->value(), 170);
    EXPECT_EQ(form().sdrVolume->value(), 65535);
    EXPECT_EQ(tags(), R"(\pit=95\\spd=170\\vol=65535\)");

    // Without a character only the volume is set.
    app.Character = nullptr;
    form().sdrPitch->setValue(300);
    form().sdrVolume->setValue(10);
    EXPECT_NO_THROW(ApplyVoiceDefaults(app));
    EXPECT_EQ(form().sdrPitch->value(), 300);
    EXPECT_EQ(tags(), R"(\pit=300\\spd=170\\vol=65535\)");
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    // A character's voice beyond the sliders stays in the tags.
    app.Character = &character();
    character().pitch = 30;
    character().speed = 300;
    cmdDefaults_Click(app);
    EXPECT_EQ(form().sdrPitch->value(), 50);
    EXPECT_EQ(form().sdrSpeed->value(), 250);
    EXPECT_EQ(tags(), R"(\pit=30\\spd=300\\vol=65535\)");

    // A slider rebuilds its own tag only.
    form().sdrSpeed->setValue(51);
    EXPECT_EQ(tags(), R"(\pit=30\\spd=51\\vol=65535\)");
}

TEST_F(CharacterTest, ViewMenuFlipsThePanel)
{
    form().show();
    form().mnuViewVoice->setChecked(true);
    const QList<QWidget*> panel{form().Frame1, form().sdrPitch, form().sdrSpeed, form().sdrVolume,
                                form().cmdDefaults};
    for (const bool shown : {false, true}) {
        mnuViewVoice_Click(app);
        EXPECT_EQ(form().mnuViewVoice->isChecked(), shown);
        for (QWidget* w : panel)
            EXPECT_EQ(w->isHidden(), !shown) << w->objectName().toStdString();
    }
}

TEST_F(CharacterTest, HidingPausesAReadingAndShowingAgainDoesNotResume)
{
    const std::pair<bool, QString> cases[] = {{true, "Quorl - Reading From Clip Board (Paused)"},
                                              {false, "Quorl - Reading /books/tale.txt (Paused)"}};
    // Outside a reading, showing plays nothing.
    app.AnimateRead = "1";
    form().cmdCont->setEnabled(false);
    fp.agent->raiseShow();
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_FALSE(form().cmdCont->isEnabled());
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
        EXPECT_EQ(form().cmdShow->text() + ' ' + form().cmdShow->toolTip(), "&Show Show Testy");
        EXPECT_TRUE(form().cmdShow->isEnabled());
        EXPECT_FALSE(form().mnuQuorlTime->isEnabled() || form().mnuQuorlDate->isEnabled());

        form().cmdCont->setEnabled(false);
        fp.agent->calls.clear();
        fp.agent->raiseShow();
        EXPECT_FALSE(form().Timer2->isActive());
        EXPECT_EQ(form().cmdCont->text(), "&Continue");
        EXPECT_TRUE(form().cmdCont->isEnabled());
        EXPECT_EQ(form().cmdShow->text() + ' ' + form().cmdShow->toolTip(), "&Hide Hide Testy");
        EXPECT_EQ(fp.agent->calls, clip ? QStringList{"Play(Read)"} : QStringList{});
    }
}

TEST_F(CharacterTest, ShowButtonAsksForTheOppositeStateUnlessTheBalloonIsUp)
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
    EXPECT_EQ(fp.dialogs.boxes,
              (std::vector<fakes::Box>{{platform::BoxIcon::Information, platform::BoxButtons::OK,
                                        "Information",
                                        "To stop him from speaking, click the right "
                                        "mouse button on the character and select 'Hide'."}}));
}

TEST_F(CharacterTest, ClicksOnTheCharacter)
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
        {"another character", "H", 1, on, on, true, true, false, false},
        {"right pauses a reading", "G", 2, off, on, true, true, false, true},
        {"right, continue disabled", "G", 2, off, on, true, false, false, false},
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

TEST_F(CharacterTest, IdleStartClosesTheBalloonAndShutdownEndsWithNothingSaved)
{
    character().balloon.visible = true;
    fp.agent->raiseIdleStart();
    EXPECT_FALSE(character().balloon.visible);

    EXPECT_THROW(fp.agent->raiseShutdown(), fakes::ProgramEnded);
    EXPECT_EQ(fp.process.ends, 1);
    EXPECT_TRUE(fp.store.writes.isEmpty());
}
