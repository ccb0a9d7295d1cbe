#include "character/LoadCharacter.h"

#include "fakes/LoadedProgram.h"
#include "startup/Wiring.h"

#include <QAction>
#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

using platform::BoxAnswer;
using platform::BoxIcon;

namespace
{

const QString Good = QStringLiteral("/chars/good.acs");
const QString Bad = QStringLiteral("/chars/bad.acs");
const QString Worse = QStringLiteral("/chars/worse.acs");
const QString CharacterErrorText =
    QStringLiteral("Cannot load the specified character. Please check the path and make sure the "
                   "file you selected is an ACS file.");

struct LoadCharacterTest : ::testing::Test, fakes::ProgramWindow {

    LoadCharacterTest()
    {
        app.AppPath = QStringLiteral("/data/quorl");
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
        for (const auto& box : fp.dialogs.boxes)
            if (box.title == QStringLiteral("Character Error")) {
                EXPECT_EQ(box.icon, BoxIcon::Critical);
                EXPECT_EQ(box.text, CharacterErrorText);
                ++count;
            }
        return count;
    }
};

TEST_F(LoadCharacterTest, FirstLoadAppliesEverythingInOrder)
{
    EXPECT_FALSE(load(true, Good));
    ASSERT_NE(app.Character, nullptr);
    EXPECT_EQ(app.Character, fp.agent->character());
    const QStringList expectedStart{QStringLiteral("Load(G,") + Good + QLatin1Char(')'),
                                    QStringLiteral("MoveTo(0,0)")};
    EXPECT_EQ(fp.agent->calls.mid(0, 2), expectedStart);
    EXPECT_FALSE(fp.agent->callsStartingWith(QStringLiteral("Commands.Add(")).isEmpty());
    const QStringList expectedEnd{QStringLiteral("SoundEffectsOn=1"), QStringLiteral("IdleOn=1"),
                                  QStringLiteral("Show(0)")};
    EXPECT_EQ(fp.agent->calls.mid(fp.agent->calls.size() - 3), expectedEnd);
    EXPECT_EQ(app.LastRequest, fp.agent->lastRequest());
    EXPECT_EQ(fp.store.value(QStringLiteral("Character")), Good);
    EXPECT_EQ(fp.store.value(QStringLiteral("X")), QStringLiteral("0"));
    EXPECT_EQ(fp.store.value(QStringLiteral("Y")), QStringLiteral("0"));
    for (const char* name : {"SoundEffects", "IdleAnimations", "Show"})
        EXPECT_EQ(fp.store.value(QLatin1String(name)), QStringLiteral("1")) << name;
    EXPECT_EQ(app.MainForm->sdrPitch->value(), 120);
    EXPECT_EQ(app.PitchTag, QStringLiteral("\\pit=120\\"));
    EXPECT_EQ(app.VolumeTag, QStringLiteral("\\vol=65535\\"));
    // The show is only queued, so the caption follows the state at the call.
    EXPECT_EQ(app.MainForm->cmdShow->text(), QStringLiteral("&Show"));
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(LoadCharacterTest, PositionStaysInsideTheScreen)
{
    // 1024 x 768 pixels: the bounds are 896 and 640.
    struct Case {
        std::optional<QString> x, y;
        QString move;
        std::optional<QString> storedX, storedY;
    };
    const Case cases[] = {
        {std::nullopt, std::nullopt, QStringLiteral("MoveTo(0,0)"), QStringLiteral("0"),
         QStringLiteral("0")},
        {QStringLiteral("896"), QStringLiteral("640"), QStringLiteral("MoveTo(896,640)"),
         QStringLiteral("896"), QStringLiteral("640")},
        {QStringLiteral("897"), QStringLiteral("300"), QStringLiteral("MoveTo(0,300)"),
         QStringLiteral("897"), QStringLiteral("300")},
        {QStringLiteral("10"), QStringLiteral("641"), QStringLiteral("MoveTo(10,0)"),
         QStringLiteral("10"), QStringLiteral("641")},
        {QStringLiteral("12.5"), QStringLiteral("13.5"), QStringLiteral("MoveTo(12,14)"),
         QStringLiteral("12.5"), QStringLiteral("13.5")},
        {QString(), QStringLiteral("-20"), QStringLiteral("MoveTo(0,-20)"), QStringLiteral("0"),
         QStringLiteral("-20")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.move.toStdString());
        fakes::FakePlatform fp;
        App app(fp.platform);
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        WireProgram(app);
        if (c.x)
            fp.store.setValue(QStringLiteral("X"), *c.x);
        if (c.y)
            fp.store.setValue(QStringLiteral("Y"), *c.y);
        QString file = Good;
        LoadCharacter(app, true, file, false);
        QStringList moves;
        for (const QString& call : fp.agent->calls)
            if (call.startsWith(QStringLiteral("MoveTo")))
                moves << call;
        EXPECT_EQ(moves, QStringList{c.move});
        EXPECT_EQ(fp.store.value(QStringLiteral("X")), c.storedX);
        EXPECT_EQ(fp.store.value(QStringLiteral("Y")), c.storedY);
    }
}

TEST_F(LoadCharacterTest, CharacterOptions)
{
    struct Case {
        const char* sound;
        const char* idle;
        const char* show;
        QStringList tail;
    };
    const Case cases[] = {
        {"0",
         "1",
         "1",
         {QStringLiteral("SoundEffectsOn=0"), QStringLiteral("IdleOn=1"),
          QStringLiteral("Show(0)")}},
        {"1",
         "0",
         "0",
         {QStringLiteral("Load(G,") + Good + QLatin1Char(')'), QStringLiteral("SoundEffectsOn=1"),
          QStringLiteral("IdleOn=0")}},
        {"2",
         "x",
         "2",
         {QStringLiteral("Load(G,") + Good + QLatin1Char(')'), QStringLiteral("SoundEffectsOn=0"),
          QStringLiteral("IdleOn=0")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.show);
        fp.agent->calls.clear();
        fp.store.setValue(QStringLiteral("SoundEffects"), QLatin1String(c.sound));
        fp.store.setValue(QStringLiteral("IdleAnimations"), QLatin1String(c.idle));
        fp.store.setValue(QStringLiteral("Show"), QLatin1String(c.show));
        load(true, Good);
        QStringList options;
        for (const QString& call : fp.agent->calls)
            if (call.startsWith(QStringLiteral("Load")) ||
                call.startsWith(QStringLiteral("SoundEffectsOn")) ||
                call.startsWith(QStringLiteral("IdleOn")) ||
                call.startsWith(QStringLiteral("Show")))
                options << call;
        EXPECT_EQ(options.mid(options.size() - 3), c.tail);
    }
}

TEST_F(LoadCharacterTest, ClockMenusWaitForACharacterHiddenFromTheStart)
{
    fp.store.setValue(QStringLiteral("Show"), QStringLiteral("0"));
    load(true, Good);
    EXPECT_FALSE(app.MainForm->mnuQuorlTime->isEnabled());
    EXPECT_FALSE(app.MainForm->mnuQuorlDate->isEnabled());
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
    EXPECT_EQ(request.filter, QStringLiteral("Agent Character (*.acs) |*.acs"));
    EXPECT_EQ(request.title, QStringLiteral("Open Character.."));
    EXPECT_EQ(request.initialDir, QStringLiteral("/data/quorl"));
    EXPECT_EQ(fp.agent->callsStartingWith(QStringLiteral("Load(")),
              (QStringList{QStringLiteral("Load(G,") + Bad + QLatin1Char(')'),
                           QStringLiteral("Load(G,") + Worse + QLatin1Char(')'),
                           QStringLiteral("Load(G,") + Good + QLatin1Char(')')}));
    EXPECT_EQ(fp.store.value(QStringLiteral("Character")), Good);
    EXPECT_NE(app.Character, nullptr);
}

TEST_F(LoadCharacterTest, RefusalAtStartUpEndsTheProgram)
{
    struct Case {
        const char* name;
        std::deque<BoxAnswer> answers;
        size_t dialogs;
    };
    for (const Case& c : {Case{"Cancel in the box", {BoxAnswer::Cancel}, 0},
                          Case{"cancelled dialog", {BoxAnswer::OK}, 1}}) {
        SCOPED_TRACE(c.name);
        fakes::FakePlatform fp;
        App app(fp.platform);
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        fp.agent->badFiles = {Bad};
        fp.dialogs.answers = c.answers;
        QString file = Bad;
        EXPECT_THROW(LoadCharacter(app, true, file, false), fakes::ProgramEnded);
        EXPECT_EQ(fp.dialogs.fileRequests.size(), c.dialogs);
        EXPECT_EQ(fp.store.value(QStringLiteral("Character")), std::nullopt);
    }
}

TEST_F(LoadCharacterTest, CancelOnReloadOnlyLeavesTheRoutine)
{
    load(true, Good);
    fp.agent->character()->visible = true;
    fp.agent->calls.clear();
    fp.dialogs.answers = {BoxAnswer::Cancel};
    EXPECT_FALSE(load(false, Bad));
    EXPECT_EQ(characterErrorBoxes(), 1);
    EXPECT_TRUE(fp.dialogs.fileRequests.empty());
    EXPECT_EQ(fp.agent->calls, (QStringList{QStringLiteral("Hide()"), QStringLiteral("Unload(G)"),
                                            QStringLiteral("Load(G,") + Bad + QLatin1Char(')')}));
    EXPECT_EQ(app.Character, nullptr);
    EXPECT_EQ(fp.store.value(QStringLiteral("Character")), Good);
}

TEST_F(LoadCharacterTest, CancelledDialogOnReloadBringsTheDialogAgain)
{
    load(true, Good);
    fp.dialogs.files = {QString(), Good};
    EXPECT_FALSE(load(false, Bad));
    EXPECT_EQ(characterErrorBoxes(), 1) << "an empty path brings no box";
    EXPECT_EQ(fp.dialogs.fileRequests.size(), 2u);
    EXPECT_NE(app.Character, nullptr);
}

TEST_F(LoadCharacterTest, ReloadOfTheSameCharacterNeitherHidesNorMoves)
{
    load(true, Good);
    fp.agent->character()->visible = true;
    fp.agent->calls.clear();
    EXPECT_FALSE(load(false, Good, true));
    for (const char* call : {"Hide", "Unload", "Load", "MoveTo"})
        EXPECT_TRUE(fp.agent->callsStartingWith(QLatin1String(call)).isEmpty()) << call;
    EXPECT_FALSE(fp.agent->callsStartingWith(QStringLiteral("Commands.Add(")).isEmpty());
    EXPECT_EQ(fp.agent->calls.mid(fp.agent->calls.size() - 3),
              (QStringList{QStringLiteral("SoundEffectsOn=1"), QStringLiteral("IdleOn=1"),
                           QStringLiteral("Show(0)")}));
    EXPECT_EQ(app.MainForm->cmdShow->text(), QStringLiteral("&Hide"));
}

TEST_F(LoadCharacterTest, CharacterInUseWarnsAndLoadingGoesOn)
{
    fp.agent->loadWithOtherClients = true;
    EXPECT_FALSE(load(true, Good));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Character is in use"));
    EXPECT_EQ(fp.dialogs.boxes[0].text,
              QStringLiteral("This Character is in use by another application. If you get any "
                             "errors, please close the other application."));
    EXPECT_EQ(fp.agent->callsStartingWith(QStringLiteral("MoveTo")).size(), 1);
    EXPECT_EQ(fp.store.value(QStringLiteral("Character")), Good);
}

} // namespace
