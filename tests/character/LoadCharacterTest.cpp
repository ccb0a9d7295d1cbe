#include "character/LoadCharacter.h"

#include "fakes/LoadedProgram.h"

#include <QAction>
#include <QPushButton>
#include <QRegularExpression>
#include <gtest/gtest.h>

using platform::BoxAnswer;

const QString Good = "/chars/good.acs", Bad = "/chars/bad.acs", Worse = "/chars/worse.acs";

struct LoadCharacterTest : ::testing::Test, fakes::ProgramWindow {
    LoadCharacterTest()
    {
        app.AppPath = "/data/quorl";
        fp.agent->badFiles = {Bad, Worse};
    }

    // Runs LoadCharacter; true when the program ended on the way.
    bool load(bool firstLoad, QString file, bool keepLoaded = false)
    {
        try {
            LoadCharacter(app, firstLoad, file, keepLoaded);
        } catch (const fakes::ProgramEnded&) {
            return true;
        }
        return false;
    }

    int characterErrorBoxes() const
    {
        int count = 0;
        for (const auto& box : fp.dialogs.boxes) {
            if (box.title != "Character Error")
                continue;
            ++count;
            EXPECT_EQ(box.icon, platform::BoxIcon::Critical);
            EXPECT_EQ(box.text, "Cannot load the specified character. Please check the path and "
                                "make sure the file you selected is an ACS file.");
        }
        return count;
    }
};

TEST_F(LoadCharacterTest, FirstLoadAppliesEverythingInOrderAndAReloadKeepsThePlace)
{
    EXPECT_FALSE(load(true, Good));
    EXPECT_EQ(app.Character, fp.agent->character());
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
    EXPECT_FALSE(load(false, Good, true));
    EXPECT_TRUE(fp.agent->calls.filter(QRegularExpression("^(Hide|Unload|Load|MoveTo)")).isEmpty());
    EXPECT_EQ(app.MainForm->cmdShow->text(), "&Hide");
}

TEST_F(LoadCharacterTest, PositionStaysInsideTheScreen)
{
    // 1024 x 768 pixels: the bounds are 896 and 640. Stored values are kept as they were, and an
    // empty one is stored as 0.
    const struct {
        QString x, y, move;
    } cases[] = {
        {"896", "640", "MoveTo(896,640)"}, {"897", "300", "MoveTo(0,300)"},
        {"10", "641", "MoveTo(10,0)"},     {"12.5", "13.5", "MoveTo(12,14)"},
        {"", "-20", "MoveTo(0,-20)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.move.toStdString());
        fakes::ProgramWindow w;
        w.fp.store.setValue("X", c.x);
        w.fp.store.setValue("Y", c.y);
        QString file = Good;
        LoadCharacter(w.app, true, file, false);
        EXPECT_EQ(w.fp.agent->callsStartingWith("MoveTo"), QStringList{c.move});
        EXPECT_EQ(w.fp.store.value("X"), c.x.isEmpty() ? "0" : c.x);
        EXPECT_EQ(w.fp.store.value("Y"), c.y);
    }
}

TEST_F(LoadCharacterTest, CharacterOptions)
{
    const QString loading = "Load(G," + Good + ")";
    const struct {
        const char *sound, *idle, *show;
        QStringList tail;
    } cases[] = {
        {"0", "1", "1", {"SoundEffectsOn=0", "IdleOn=1", "Show(0)"}},
        {"1", "0", "0", {loading, "SoundEffectsOn=1", "IdleOn=0"}},
        {"2", "x", "2", {loading, "SoundEffectsOn=0", "IdleOn=0"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.show);
        fp.agent->calls.clear();
        fp.store.setValue("SoundEffects", c.sound);
        fp.store.setValue("IdleAnimations", c.idle);
        fp.store.setValue("Show", c.show);
        load(true, Good);
        const QStringList options =
            fp.agent->calls.filter(QRegularExpression("^(Load|SoundEffectsOn|IdleOn|Show)"));
        EXPECT_EQ(options.mid(options.size() - 3), c.tail);
        // The show is only queued: the clock menus wait for the character to appear.
        EXPECT_FALSE(app.MainForm->mnuQuorlTime->isEnabled());
        EXPECT_FALSE(app.MainForm->mnuQuorlDate->isEnabled());
    }
    fp.agent->raiseShow(CharacterId);
    EXPECT_TRUE(app.MainForm->mnuQuorlTime->isEnabled());
    EXPECT_TRUE(app.MainForm->mnuQuorlDate->isEnabled());
}

TEST_F(LoadCharacterTest, BadFileAtStartUpAsksUntilAFileLoads)
{
    fp.dialogs.files = {Worse, Good};
    EXPECT_FALSE(load(true, Bad));
    EXPECT_EQ(characterErrorBoxes(), 2);
    ASSERT_EQ(fp.dialogs.fileRequests.size(), 2u);
    const auto& request = fp.dialogs.fileRequests[0];
    EXPECT_EQ(request.filter, "Agent Character (*.acs) |*.acs");
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
    EXPECT_FALSE(load(false, Bad));
    EXPECT_EQ(characterErrorBoxes(), 1);
    EXPECT_TRUE(fp.dialogs.fileRequests.empty());
    EXPECT_EQ(fp.agent->calls, QStringList({"Hide()", "Unload(G)", "Load(G," + Bad + ")"}));
    EXPECT_EQ(app.Character, nullptr);
    EXPECT_EQ(fp.store.value("Character"), Good);

    fp.dialogs.files = {QString(), Good};
    EXPECT_FALSE(load(false, Bad));
    EXPECT_EQ(characterErrorBoxes(), 2) << "an empty path brings no box";
    EXPECT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_NE(app.Character, nullptr);
}

TEST_F(LoadCharacterTest, CharacterInUseWarnsAndLoadingGoesOn)
{
    fp.agent->loadWithOtherClients = true;
    EXPECT_FALSE(load(true, Good));
    EXPECT_EQ(fp.dialogs.boxes,
              (std::vector<fakes::Box>{{platform::BoxIcon::Warning, platform::BoxButtons::OK,
                                        "Character is in use",
                                        "This Character is in use by another application. If you "
                                        "get any errors, please close the other application."}}));
    EXPECT_EQ(fp.agent->callsStartingWith("MoveTo").size(), 1);
    EXPECT_EQ(fp.store.value("Character"), Good);
}
