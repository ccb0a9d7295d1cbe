#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "commands/CharacterFixture.h"
#include "commands/VoiceCommands.h"
#include "commands/frmShut.h"
#include "core/Controls.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>

namespace
{

using fakes::ProgramEnded;

const platform::RuntimeError Refused(1234, QStringLiteral("Agent.Control.1"),
                                     QStringLiteral("refused"));

struct Confirmation {
    QString name, label, tag, question;
};

const Confirmation Confirmations[] = {
    {"Shut", "Shut Down", "1", "Are you sure you want to shut down?"},
    {"Restart", "Restart", "2", "Are you sure you want to restart?"},
    {"CloseQuorl", "Close Quorl", "10", "Are you sure you want to close Quorl?"},
};

class CommandDispatchTest : public CharacterFixture
{
protected:
    CommandDispatchTest()
    {
        SetVoiceCommands(app);
        app.MainForm->show();
        fp.agent->calls.clear();
        fp.store.writes.clear();
    }

    void command(const QString& name) { fp.agent->raiseCommand(name); }

    QString lastSpoken() const
    {
        const QStringList spoken = fp.agent->spoken();
        return spoken.isEmpty() ? QString() : spoken.last();
    }

    bool entryEnabled(const QString& name)
    {
        return character().Commands().Command(name).Enabled();
    }

    // Three applications, the third with blanks around its caption's record and its path.
    void loadThreeApplications()
    {
        for (int i = 1; i <= 3; ++i)
            character().Commands().Add(QStringLiteral(" %1").arg(i),
                                       QStringLiteral("App %1").arg(i),
                                       QStringLiteral("App %1").arg(i), true, true);
        character().Commands().Command(" 3").setCaption("Editor");
        app.AppPaths = {QString(), "/bin/one", "/bin/two", "  /usr/bin/editor --new \"a b\"  "};
        fp.agent->calls.clear();
    }
};

TEST_F(CommandDispatchTest, APopupPickAndAPhraseTakeTheOneRoutine)
{
    const std::pair<QString, void (*)(App&)> cases[] = {{"Time", SayTime}, {"Date", SayDate}};
    for (const auto& [name, routine] : cases) {
        routine(app);
        const QStringList direct = fp.agent->calls;
        fp.agent->calls.clear();
        command(name);
        EXPECT_EQ(fp.agent->calls, direct) << name.toStdString();
        EXPECT_FALSE(direct.isEmpty());
        fp.agent->calls.clear();
    }
}

TEST_F(CommandDispatchTest, YesAndNoWithNothingPendingDoNothing)
{
    for (const QString name : {"Yes", "No"}) {
        command(name);
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << name.toStdString();
        EXPECT_TRUE(fp.power.calls.empty());
        EXPECT_EQ(fp.process.ends, 0);
        EXPECT_FALSE(app.ShutForm);
    }
}

TEST_F(CommandDispatchTest, EachWeightyCommandAsksForConfirmation)
{
    for (const Confirmation& c : Confirmations) {
        SCOPED_TRACE(c.name.toStdString());
        command(c.name);

        EXPECT_TRUE(app.ConfirmPending);
        ASSERT_TRUE(app.ShutForm);
        EXPECT_EQ(ShutForm(app)->Label1->text(), c.label);
        EXPECT_EQ(Tag(ShutForm(app)), c.tag);
        EXPECT_TRUE(ShutForm(app)->isVisible());
        EXPECT_EQ(ShutForm(app)->windowTitle(), QStringLiteral("Shut Down Windows"));
        EXPECT_TRUE(lastSpoken().contains(c.question));
        // The question is queued first, then No and Yes can be said; never picked.
        const QStringList tail = fp.agent->calls.mid(fp.agent->calls.size() - 3);
        EXPECT_TRUE(tail[0].startsWith("Speak("));
        EXPECT_EQ(tail.mid(1), QStringList({"Command(No).Enabled=1", "Command(Yes).Enabled=1"}));
        EXPECT_FALSE(character().Commands().Command("Yes").Visible());
        EXPECT_FALSE(character().Commands().Command("No").Visible());

        command("No");
        fp.agent->calls.clear();
    }
}

TEST_F(CommandDispatchTest, ASecondCommandWhileAskingReplacesTheQuestionOnly)
{
    command("Shut");
    ASSERT_TRUE(app.ShutForm);
    const frmShut* first = ShutForm(app);
    EXPECT_TRUE(ShutForm(app)->WasVisible);
    EXPECT_FALSE(app.MainForm->isVisible());

    command("Restart");

    EXPECT_EQ(ShutForm(app), first);
    EXPECT_EQ(ShutForm(app)->Label1->text(), QStringLiteral("Restart"));
    EXPECT_EQ(Tag(ShutForm(app)), QStringLiteral("2"));
    EXPECT_TRUE(lastSpoken().contains("Are you sure you want to restart?"));
    // A second Form_Load would have seen the main window hidden.
    EXPECT_TRUE(ShutForm(app)->WasVisible);
    EXPECT_EQ(fp.agent->callsStartingWith("Commands.Visible=0").size(), 1);

    fp.power.onCall = [&] { EXPECT_EQ(fp.process.ends, 0); };
    EXPECT_THROW(command("Yes"), ProgramEnded);
    EXPECT_EQ(fp.power.calls, (std::vector<std::pair<unsigned, unsigned>>{{2, 0}}));
}

TEST_F(CommandDispatchTest, ASpokenYesToShutDownOrRestartSavesAsksThePlatformAndEnds)
{
    for (const unsigned code : {1u, 2u}) {
        for (const bool save : {true, false}) {
            SCOPED_TRACE(testing::Message() << code << (save ? " saving" : " not saving"));
            fp.power.calls.clear();
            fp.process.ends = 0;
            fp.store.writes.clear();
            app.MainForm->mnuFileSave->setChecked(save);
            command(code == 1 ? "Shut" : "Restart");

            QStringList writesAtPowerOff;
            fp.power.onCall = [&] { writesAtPowerOff = fp.store.writes; };
            EXPECT_THROW(command("Yes"), ProgramEnded);

            EXPECT_EQ(fp.power.calls, (std::vector<std::pair<unsigned, unsigned>>{{code, 0}}));
            EXPECT_EQ(fp.process.ends, 1);
            EXPECT_EQ(writesAtPowerOff.contains("WinX"), save);
            EXPECT_EQ(fp.store.writes, writesAtPowerOff);
            // The end comes at once: no unloading, so the window values go only with Save.
            EXPECT_EQ(fp.store.writes.contains("SaveSettings"), save);
            EXPECT_FALSE(app.ConfirmPending);

            app.ShutForm.reset();
            app.MainForm->show();
            fp.power.onCall = nullptr;
        }
    }
}

TEST_F(CommandDispatchTest, ASpokenYesToCloseTakesTheOrderlyExit)
{
    app.MainForm->mnuFileSave->setChecked(false);
    command("CloseQuorl");
    fp.agent->calls.clear();

    EXPECT_THROW(command("Yes"), ProgramEnded);

    EXPECT_TRUE(fp.power.calls.empty());
    EXPECT_FALSE(app.ShutForm);
    EXPECT_EQ(fp.agent->calls, QStringList({"Command(No).Enabled=0", "Command(Yes).Enabled=0"}));
    EXPECT_EQ(fp.store.writes, QStringList{"SaveSettings"});
    EXPECT_EQ(app.ModalOpen, 0);
}

TEST_F(CommandDispatchTest, ASpokenNoRestoresEverything)
{
    app.MainForm->mnuViewTop->setChecked(true);
    app.OnTop = true;
    command("Shut");
    EXPECT_FALSE(app.OnTop);
    EXPECT_EQ(app.ModalOpen, 1);
    fp.agent->calls.clear();

    command("No");

    EXPECT_TRUE(lastSpoken().contains("That was close!"));
    EXPECT_EQ(app.MainForm->txtText->toPlainText(), QString());
    EXPECT_FALSE(app.ConfirmPending);
    EXPECT_FALSE(app.ShutForm);
    EXPECT_TRUE(character().Commands().Visible());
    EXPECT_FALSE(entryEnabled("Yes"));
    EXPECT_FALSE(entryEnabled("No"));
    EXPECT_EQ(app.ModalOpen, 0);
    EXPECT_TRUE(app.OnTop);
    EXPECT_TRUE(app.MainForm->isVisible());
    EXPECT_TRUE(fp.power.calls.empty());
    EXPECT_EQ(fp.process.ends, 0);

    fp.agent->calls.clear();
    command("No");
    EXPECT_TRUE(fp.agent->calls.isEmpty());
}

TEST_F(CommandDispatchTest, AnApplicationNameRunsItsPathAfterSayingItsCaption)
{
    loadThreeApplications();
    command(" 3");
    ASSERT_EQ(fp.agent->spoken().size(), 1);
    EXPECT_TRUE(lastSpoken().endsWith("Running Editor.") ||
                lastSpoken().contains("\"Running Editor.\""));
    EXPECT_EQ(fp.shell.started, QStringList{"/usr/bin/editor --new \"a b\""});
    EXPECT_EQ(app.MainForm->txtText->toPlainText(), QString());
}

TEST_F(CommandDispatchTest, NamesThatAreNoLoadedApplicationDoNothing)
{
    loadThreeApplications();
    for (const QString name : {" 4", " 0", " ", "Bogus", "clip", ""}) {
        command(name);
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << name.toStdString();
        EXPECT_TRUE(fp.shell.started.isEmpty()) << name.toStdString();
    }
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(CommandDispatchTest, WithAnEmptyTableNoApplicationRuns)
{
    character().Commands().Add(" 1", "Editor", "Editor", true, true);
    fp.agent->calls.clear();
    command(" 1");
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_TRUE(fp.shell.started.isEmpty());
}

TEST_F(CommandDispatchTest, AnApplicationThatCannotStartIsToldInSpeechAndTheTextBox)
{
    loadThreeApplications();
    fp.shell.failing["/usr/bin/editor --new \"a b\""] = "the program was not found";

    command(" 3");

    const QString sentence =
        "I am unable to run your application because the program was not found.";
    const QStringList spoken = fp.agent->spoken();
    ASSERT_EQ(spoken.size(), 2);
    EXPECT_TRUE(spoken[0].contains("Running Editor."));
    EXPECT_TRUE(spoken[1].contains(sentence));
    EXPECT_EQ(app.MainForm->txtText->toPlainText(), sentence);
    EXPECT_TRUE(fp.dialogs.boxes.empty());
    EXPECT_EQ(app.AppPaths.size(), 4u);
}

TEST_F(CommandDispatchTest, AnApplicationWithoutItsCommandTakesTheLaunchFailurePath)
{
    loadThreeApplications();
    fp.agent->failCalls("Commands.Command( 2", Refused);
    command(" 2");
    EXPECT_TRUE(lastSpoken().contains("I am unable to run your application because refused."));
    EXPECT_TRUE(fp.shell.started.isEmpty());
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(CommandDispatchTest, AFailingBuiltInCommandIsReportedAtSix)
{
    fp.agent->failCalls("Speak(", Refused);
    command("Restart");
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 6 )"));
    // The routine was left before Yes and No were enabled.
    EXPECT_FALSE(entryEnabled("Yes"));
    EXPECT_FALSE(entryEnabled("No"));
}

TEST_F(CommandDispatchTest, AMicrophoneHeldByAnotherProgramShowsTheSoundSystemBox)
{
    fp.agent->raiseError(
        platform::RuntimeError(platform::errors::SoundSystemBusy, platform::AgentSource, "in use"));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    EXPECT_EQ(fp.dialogs.boxes[0].title, QStringLiteral("Speech Input Error"));
    EXPECT_EQ(fp.process.ends, 0);
}

} // namespace
