#include "character/ApplyVoiceDefaults.h"
#include "character/CharacterEvents.h"
#include "character/LoadCharacter.h"
#include "character/SayText.h"
#include "character/VoicePanel.h"
#include "core/Controls.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QTimer>
#include <gtest/gtest.h>

// Speaking, the voice panel and the character's events. The balloon's hiding map is ClockTest's.
struct CharacterTest : CharacterFixture, ::testing::Test {
    // The sliders' pitch, speed and volume, then the tags.
    QString voice()
    {
        return QString::asprintf("%d %d %d ", form().sdrPitch->value(), form().sdrSpeed->value(),
                                 form().sdrVolume->value()) +
               app.PitchTag + app.SpeedTag + app.VolumeTag;
    }
};

TEST_F(CharacterTest, SpacesOnlySayNothingAndTouchNothing)
{
    character().visible = false;
    form().cmdStop->setEnabled(true);
    form().txtText->setPlainText("kept");
    for (const QString text : {"", " ", "     "}) {
        SayText(app, text, false);
        EXPECT_TRUE(fp.agent->calls.isEmpty());
        EXPECT_TRUE(form().cmdStop->isEnabled()) << "the reading controls were updated";
        EXPECT_EQ(form().txtText->toPlainText(), "kept");
    }
}

TEST_F(CharacterTest, LineIsTagsAndTextAsTheyStandAndAKeptTextBoxStays)
{
    const QString voice = R"(\pit=110\\spd=150\\vol=900\)";
    const QString normal = R"(\chr="normal"\)" + voice, whisper = R"(\chr="whisper"\)" + voice;
    const std::tuple<bool, bool, QString, QString> cases[] = {
        {false, true, "Hello.", "Speak(" + normal + "Hello.)"},
        {true, true, "Hello.", "Speak(" + whisper + "Hello.)"},
        {false, true, R"(a \b\ "c")", "Speak(" + normal + R"(a \b\ "c"))"},
        {false, true, "  x ", "Speak(" + normal + "  x )"},
        {false, false, "Hi", "Show(0) Speak(" + normal + "Hi)"},
    };
    form().txtText->setPlainText("old");
    for (const auto& [whisper, visible, text, calls] : cases) {
        SCOPED_TRACE(calls.toStdString());
        fp.agent->calls.clear();
        character().visible = visible;
        form().chkWhisper->setChecked(whisper);
        SayText(app, text, true);
        EXPECT_EQ(fp.agent->calls.join(' '), calls);
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
        EXPECT_FALSE(atOnce && (app.ReadingClip || form().Timer2->isActive()));
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
    EXPECT_EQ(voice(), R"(95 170 65535 \pit=95\\spd=170\\vol=65535\)");

    // Without a character only the volume is set.
    app.Character = nullptr;
    form().sdrPitch->setValue(300);
    form().sdrVolume->setValue(10);
    EXPECT_NO_THROW(ApplyVoiceDefaults(app));
    EXPECT_EQ(voice(), R"(300 170 65535 \pit=300\\spd=170\\vol=65535\)");
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    // A character's voice beyond the sliders stays in the tags.
    app.Character = &character();
    character().pitch = 30;
    character().speed = 300;
    cmdDefaults_Click(app);
    EXPECT_EQ(voice(), R"(50 250 65535 \pit=30\\spd=300\\vol=65535\)");

    // A slider rebuilds its own tag only.
    form().sdrSpeed->setValue(51);
    EXPECT_EQ(voice(), R"(50 51 65535 \pit=30\\spd=51\\vol=65535\)");
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
    const std::tuple<QString, int, QString, QString, bool, bool, bool, bool> cases[] = {
        {"G", 1, "1", "0", false, true, true, false},  // left reads the clipboard
        {"G", 1, "0", "1", false, true, false, false}, // left, switch off
        {"H", 1, "1", "1", true, true, false, false},  // another character
        {"G", 2, "0", "1", true, true, false, true},   // right pauses a reading
        {"G", 2, "0", "1", true, false, false, false}, // right, pause disabled
        {"G", 4, "1", "1", true, true, false, false},  // middle
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(&row - cases);
        const auto& [id, button, click1, click, reading, contEnabled, spoken, paused] = row;
        CharacterFixture f;
        f.fp.clipboard.text = "From the clipboard";
        f.fp.store.setValue("Click1", click1);
        f.fp.store.setValue("Click", click);
        if (reading) {
            f.app.ReadingClip = true;
            f.form().Timer2->start();
            f.form().cmdCont->setEnabled(contEnabled);
        }
        f.fp.agent->raiseClick(button, id);
        EXPECT_EQ(!f.fp.agent->spoken().isEmpty(), spoken);
        EXPECT_EQ(reading && !f.form().Timer2->isActive(), paused);
    }
}

TEST_F(CharacterTest, IdleStartClosesTheBalloonAndShutdownEndsWithNothingSaved)
{
    character().balloon.visible = true;
    fp.agent->raiseIdleStart();
    EXPECT_FALSE(character().balloon.visible);

    EXPECT_THROW(fp.agent->raiseShutdown(), fakes::ProgramEnded);
    EXPECT_TRUE(fp.store.writes.isEmpty());
}

using platform::BoxAnswer;

const QString Good = "/chars/good.acs", Bad = "/chars/bad.acs", Worse = "/chars/worse.acs";
const fakes::Box CharacterError{platform::BoxIcon::Critical, platform::BoxButtons::OKCancel,
                                "Character Error",
                                "Cannot load the specified character. Please check the path and "
                                "make sure the file you selected is an ACS file."};

struct LoadCharacterTest : ::testing::Test, fakes::ProgramWindow {
    LoadCharacterTest() { fp.agent->badFiles = {Bad, Worse}; }

    // The program must not end on the way.
    void load(bool firstLoad, QString file, bool keepLoaded = false)
    {
        LoadCharacter(app, firstLoad, file, keepLoaded);
    }
};

TEST_F(LoadCharacterTest, FirstLoadAppliesEverythingInOrderAndAReloadKeepsThePlace)
{
    load(true, Good);
    EXPECT_EQ(fp.agent->calls.mid(0, 2), QStringList({"Load(G," + Good + ")", "MoveTo(0,0)"}));
    EXPECT_FALSE(fp.agent->callsStartingWith("Commands.Add(").isEmpty());
    EXPECT_EQ(fp.agent->calls.mid(fp.agent->calls.size() - 3),
              QStringList({"SoundEffectsOn=1", "IdleOn=1", "Show(0)"}));
    EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    for (const QString name : {"SoundEffects", "IdleAnimations", "Show"})
        EXPECT_EQ(fp.store.value(name), "1") << name.toStdString();
    EXPECT_EQ(app.PitchTag, R"(\pit=120\)") << "the character's voice was not applied";
    // The show is only queued, so the caption follows the state at the call.
    EXPECT_EQ(app.MainForm->cmdShow->text(), "&Show");
    EXPECT_TRUE(fp.dialogs.boxes.empty());

    // A reload of the same character neither hides nor moves it.
    fp.agent->character()->visible = true;
    fp.agent->calls.clear();
    load(false, Good, true);
    EXPECT_TRUE(fp.agent->calls.filter(QRegularExpression("^(Hide|Unload|Load|MoveTo)")).isEmpty());
    EXPECT_EQ(app.MainForm->cmdShow->text(), "&Hide");
}

TEST_F(LoadCharacterTest, PositionStaysInsideTheScreen)
{
    // 1024 x 768 pixels: the bounds are 896 and 640. Stored values are kept as they were, and an
    // empty one is stored as 0.
    const std::tuple<QString, QString, QString> cases[] = {
        {"896", "640", "MoveTo(896,640)"}, {"897", "300", "MoveTo(0,300)"},
        {"10", "641", "MoveTo(10,0)"},     {"12.5", "13.5", "MoveTo(12,14)"},
        {"", "-20", "MoveTo(0,-20)"},
    };
    for (const auto& [x, y, move] : cases) {
        SCOPED_TRACE(move.toStdString());
        fakes::ProgramWindow w;
        w.fp.store.setValue("X", x);
        w.fp.store.setValue("Y", y);
        QString file = Good;
        LoadCharacter(w.app, true, file, false);
        EXPECT_EQ(w.fp.agent->callsStartingWith("MoveTo"), QStringList{move});
        EXPECT_EQ(w.fp.store.value("X"), x.isEmpty() ? "0" : x);
        EXPECT_EQ(w.fp.store.value("Y"), y);
    }
}

TEST_F(LoadCharacterTest, CharacterOptions)
{
    const QString loading = "Load(G," + Good + ")";
    const std::tuple<QString, QString, QString, QStringList> cases[] = {
        {"0", "1", "1", {"SoundEffectsOn=0", "IdleOn=1", "Show(0)"}},
        {"1", "0", "0", {loading, "SoundEffectsOn=1", "IdleOn=0"}},
        {"2", "x", "2", {loading, "SoundEffectsOn=0", "IdleOn=0"}},
    };
    for (const auto& [sound, idle, show, tail] : cases) {
        SCOPED_TRACE(show.toStdString());
        fp.agent->calls.clear();
        fp.store.setValue("SoundEffects", sound);
        fp.store.setValue("IdleAnimations", idle);
        fp.store.setValue("Show", show);
        load(true, Good);
        const QStringList options =
            fp.agent->calls.filter(QRegularExpression("^(Load|SoundEffectsOn|IdleOn|Show)"));
        EXPECT_EQ(options.mid(options.size() - 3), tail);
        // The show is only queued: the clock menus wait for the character to appear.
        EXPECT_FALSE(app.MainForm->mnuQuorlTime->isEnabled() ||
                     app.MainForm->mnuQuorlDate->isEnabled());
    }
    fp.agent->raiseShow(CharacterId);
    EXPECT_TRUE(app.MainForm->mnuQuorlTime->isEnabled() && app.MainForm->mnuQuorlDate->isEnabled());
}

TEST_F(LoadCharacterTest, BadFileAtStartUpAsksUntilAFileLoads)
{
    fp.dialogs.files = {Worse, Good};
    load(true, Bad);
    EXPECT_EQ(fp.dialogs.boxes, std::vector(2, CharacterError));
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_EQ(fp.dialogs.fileRequests[0].filter, "Agent Character (*.acs) |*.acs");
    EXPECT_EQ(
        fp.agent->callsStartingWith("Load("),
        QStringList({"Load(G," + Bad + ")", "Load(G," + Worse + ")", "Load(G," + Good + ")"}));
    EXPECT_EQ(fp.store.value("Character"), Good);
    EXPECT_NE(app.Character, nullptr);
}

TEST_F(LoadCharacterTest, RefusalAtStartUpEndsTheProgram)
{
    const std::pair<BoxAnswer, size_t> cases[] = {{BoxAnswer::Cancel, 0}, {BoxAnswer::OK, 1}};
    for (const auto& [answer, dialogs] : cases) {
        SCOPED_TRACE(dialogs ? "cancelled dialog" : "Cancel in the box");
        fakes::ProgramWindow w;
        w.fp.agent->badFiles = {Bad};
        w.fp.dialogs.answers = {answer};
        QString file = Bad;
        EXPECT_THROW(LoadCharacter(w.app, true, file, false), fakes::ProgramEnded);
        EXPECT_EQ(w.fp.dialogs.fileRequests.size(), dialogs);
        EXPECT_EQ(w.fp.store.value("Character"), std::nullopt);
    }
}

TEST_F(LoadCharacterTest, OnReloadCancelLeavesTheRoutineAndACancelledDialogComesAgain)
{
    load(true, Good);
    fp.agent->character()->visible = true;
    fp.agent->calls.clear();
    fp.dialogs.answers = {BoxAnswer::Cancel};
    load(false, Bad);
    EXPECT_EQ(fp.dialogs.boxes, std::vector{CharacterError});
    EXPECT_TRUE(fp.dialogs.fileRequests.empty());
    EXPECT_EQ(fp.agent->calls, QStringList({"Hide()", "Unload(G)", "Load(G," + Bad + ")"}));
    EXPECT_EQ(app.Character, nullptr);
    EXPECT_EQ(fp.store.value("Character"), Good);

    fp.dialogs.files = {QString(), Good};
    load(false, Bad);
    EXPECT_EQ(fp.dialogs.boxes, std::vector(2, CharacterError)) << "an empty path brings no box";
    EXPECT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_NE(app.Character, nullptr);
}

TEST_F(LoadCharacterTest, CharacterInUseWarnsAndLoadingGoesOn)
{
    fp.agent->loadWithOtherClients = true;
    load(true, Good);
    EXPECT_EQ(fp.dialogs.boxes,
              (std::vector<fakes::Box>{{platform::BoxIcon::Warning, platform::BoxButtons::OK,
                                        "Character is in use",
                                        "This Character is in use by another application. If you "
                                        "get any errors, please close the other application."}}));
    EXPECT_EQ(fp.agent->callsStartingWith("MoveTo").size(), 1);
    EXPECT_EQ(fp.store.value("Character"), Good);
}
