#include "clock/SayDate.h"
#include "commands/VoiceCommands.h"
#include "commands/frmShut.h"
#include "core/Controls.h"
#include "fakes/CharacterFixture.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using fakes::ProgramEnded;
using PowerCalls = std::vector<std::pair<unsigned, unsigned>>;

const platform::RuntimeError Refused(1234, "Agent.Control.1", "refused");

struct CommandDispatchTest : CharacterFixture, ::testing::Test {
    CommandDispatchTest()
    {
        SetVoiceCommands(app);
        app.MainForm->show();
        fp.agent->calls.clear();
    }

    void command(const QString& name) { fp.agent->raiseCommand(name); }
    QString lastSpoken() const { return fp.agent->spoken().value(fp.agent->spoken().size() - 1); }
    // Asking, the question's window, open modals, on top, the main window and the commands shown.
    auto state()
    {
        return std::tuple(app.ConfirmPending, bool(app.ShutForm), app.ModalOpen, app.OnTop,
                          app.MainForm->isVisible(), character().Commands().Visible());
    }
};

// The time asked by voice is followed end to end (tests/app/voice_command.sh); the date takes
// the same way.
TEST_F(CommandDispatchTest, APopupPickAndAPhraseTakeTheOneRoutine)
{
    SayDate(app);
    const QStringList direct = fp.agent->calls;
    ASSERT_FALSE(direct.isEmpty());
    fp.agent->calls.clear();
    command("Date");
    EXPECT_EQ(fp.agent->calls, direct);
    fp.agent->calls.clear();
    for (const QString name : {"Yes", "No"}) {
        command(name);
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << "nothing pending: " << name.toStdString();
        EXPECT_TRUE(fp.power.calls.empty());
        EXPECT_FALSE(app.ShutForm);
    }
}

TEST_F(CommandDispatchTest, AWeightyCommandAsksInItsWindowAndNoGivesEverythingBack)
{
    character().name = "Lumo";
    const std::tuple<QString, QString, QString, bool, bool, bool> cases[] = {
        {"Shut", "Shut Down", "shut down?", true, false, false},
        {"Restart", "Restart", "restart?", false, false, true},
        {"CloseQuorl", "Close Quorl", "close Quorl?", false, true, true},
    };
    for (const auto& [name, label, question, mainVisible, topMost, byKey] : cases) {
        SCOPED_TRACE(name.toStdString());
        app.MainForm->setVisible(mainVisible);
        app.MainForm->mnuViewTop->setChecked(topMost);
        app.OnTop = topMost;
        command(name);
        // Loading takes over the main window.
        EXPECT_EQ(state(), std::tuple(true, true, 1, false, false, false));
        ASSERT_TRUE(app.ShutForm);
        frmShut& form = *ShutForm(app);
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(lastSpoken().contains("Are you sure you want to " + question));
        // The question is queued first, then No and Yes can be said; never picked.
        EXPECT_EQ(fp.agent->calls.mid(fp.agent->calls.size() - 2),
                  QStringList({"Command(No).Enabled=1", "Command(Yes).Enabled=1"}));
        // Only the label differs between uses.
        EXPECT_EQ(
            QStringList({form.Label1->text(), form.windowTitle(), form.Label2->text(),
                         form.cmdNo->text(), form.cmdYes->text()}),
            QStringList({label, "Shut Down Windows",
                         "You can say 'Yes' or 'No' and Lumo will understand.", "&NO", "&YES"}));
        EXPECT_FALSE(form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_EQ(form.WasVisible, mainVisible);
        fp.agent->calls.clear();

        if (byKey)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            command("No");
        EXPECT_TRUE(lastSpoken().contains("That was close!"));
        EXPECT_EQ(app.MainForm->txtText->toPlainText(), QString());
        // Putting the window back on top also shows it, hidden or not.
        EXPECT_EQ(state(), std::tuple(false, false, 0, topMost, mainVisible || topMost, true));
        EXPECT_TRUE(fp.power.calls.empty());
    }
}

TEST_F(CommandDispatchTest, ASecondCommandWhileAskingReplacesTheQuestionOnly)
{
    command("Shut");
    ASSERT_TRUE(app.ShutForm);
    const frmShut* first = ShutForm(app);
    command("Restart");
    EXPECT_EQ(ShutForm(app), first);
    EXPECT_EQ(first->Label1->text(), "Restart");
    EXPECT_TRUE(lastSpoken().contains("Are you sure you want to restart?"));
    // A second Form_Load would have seen the main window hidden.
    EXPECT_TRUE(first->WasVisible);
    EXPECT_EQ(fp.agent->callsStartingWith("Commands.Visible=0").size(), 1);

    EXPECT_THROW(command("Yes"), ProgramEnded);
    EXPECT_EQ(fp.power.calls, (PowerCalls{{2, 0}}));
}

TEST_F(CommandDispatchTest, YesAsksThePlatformFirstAndThenEndsTheProgram)
{
    const std::tuple<QString, bool, bool, PowerCalls> cases[] = {
        {"Shut", false, true, {{1, 0}}},  {"Shut", false, false, {{1, 0}}},
        {"CloseQuorl", false, false, {}}, {"Shut", true, false, {{1, 0}}},
        {"CloseQuorl", true, false, {}},
    };
    for (const auto& [name, byButton, save, power] : cases) {
        SCOPED_TRACE(testing::Message() << name.toStdString() << byButton << save);
        fp.power.calls.clear();
        fp.store.writes.clear();
        app.MainForm->show();
        app.MainForm->mnuFileSave->setChecked(save);
        command(name);
        fp.agent->calls.clear();
        QStringList writesAtPowerOff;
        fp.power.onCall = [&] {
            writesAtPowerOff = fp.store.writes;
            EXPECT_TRUE(app.ShutForm);
        };
        if (byButton)
            EXPECT_THROW(ShutForm(app)->cmdYes->click(), ProgramEnded);
        else
            EXPECT_THROW(command("Yes"), ProgramEnded);
        EXPECT_EQ(fp.power.calls, power);
        EXPECT_EQ(writesAtPowerOff.contains("WinX"), save);
        if (!byButton && !power.empty()) {
            // The end comes at once: no unloading, so the window values go only with Save.
            EXPECT_EQ(fp.store.writes, writesAtPowerOff);
            EXPECT_EQ(fp.store.writes.contains("SaveSettings"), save);
        } else {
            EXPECT_TRUE(writesAtPowerOff.isEmpty());
            EXPECT_EQ(fp.store.writes, QStringList{"SaveSettings"});
            EXPECT_FALSE(app.ShutForm);
            EXPECT_EQ(fp.agent->calls,
                      QStringList({"Command(No).Enabled=0", "Command(Yes).Enabled=0"}));
            EXPECT_EQ(app.ModalOpen, 0);
        }
        // The answer by button leaves the pending flag, which no longer matters.
        EXPECT_EQ(app.ConfirmPending, byButton);
        fp.power.onCall = nullptr;
        app.ShutForm.reset();
    }
}

TEST_F(CommandDispatchTest, AnApplicationNameRunsItsPathAfterSayingItsCaptionOrTellsWhyNot)
{
    // The third with blanks around its path and a changed caption.
    for (int i = 1; i <= 3; ++i)
        character().Commands().Add(QString(" %1").arg(i), QString("App %1").arg(i),
                                   QString("App %1").arg(i), true, true);
    character().Commands().Command(" 3").setCaption("Editor");
    app.AppPaths = {QString(), "/bin/one", "/bin/two", "  /usr/bin/editor --new \"a b\"  "};
    command(" 3");
    EXPECT_EQ(fp.agent->spoken(), QStringList{Tags + "Running Editor."});
    EXPECT_EQ(fp.shell.started, QStringList{"/usr/bin/editor --new \"a b\""});
    EXPECT_EQ(app.MainForm->txtText->toPlainText(), QString());

    fp.agent->calls.clear();
    for (const QString name : {" 4", " 0", " ", "Bogus", "clip", ""}) {
        command(name);
        EXPECT_TRUE(fp.agent->calls.isEmpty()) << name.toStdString();
    }

    fp.shell.failing["/bin/two"] = "the program was not found";
    command(" 2");
    const QString sentence =
        "I am unable to run your application because the program was not found.";
    EXPECT_EQ(fp.agent->spoken(), QStringList({Tags + "Running App 2.", Tags + sentence}));
    EXPECT_EQ(app.MainForm->txtText->toPlainText(), sentence);
    EXPECT_EQ(app.AppPaths.size(), 4u);

    // An entry that cannot be found takes the same path.
    fp.agent->failCalls("Commands.Command( 1", Refused);
    command(" 1");
    EXPECT_TRUE(lastSpoken().endsWith("I am unable to run your application because refused."));
}

TEST_F(CommandDispatchTest, AFailingBuiltInCommandIsReportedAtSixAndABusyMicrophoneByItsBox)
{
    fp.agent->failCalls("Speak(", Refused);
    command("Restart");
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 6 )"));
    // The routine was left before Yes and No were enabled.
    EXPECT_FALSE(character().Commands().Command("Yes").Enabled() ||
                 character().Commands().Command("No").Enabled());

    fp.dialogs.boxes.clear();
    fp.agent->raiseError({platform::errors::SoundSystemBusy, platform::AgentSource, "in use"});
    EXPECT_EQ(fp.dialogs.titles(), QStringList{"Speech Input Error"});
}

struct VoiceCommandsTest : CharacterFixture, ::testing::Test {
};

TEST_F(VoiceCommandsTest, ARebuildOnACleanStoreMakesTheEntriesInOrderThenUsesTheStoredValues)
{
    SetVoiceCommands(app);
    QStringList expected{
        "Commands.RemoveAll()",
        "Commands.Caption=Quorl",
        "Commands.Voice=Quorl",
        "Commands.Visible=1",
        "Commands.Add(Clip,Read From Clip Board,Clip Board,1,1)",
        "Commands.Add(Notes,Notes && Reminders,Notes,1,1)",
        "Commands.Add(Time,What is the Time?,What is the time,1,1)",
        "Commands.Add(Date,What is the Date?,What is the date,1,1)",
        "Commands.Add(Shut,Shut Down Windows,Shut Down,1,1)",
        "Commands.Add(Restart,Restart Windows,Restart Windows,1,1)",
    };
    for (const QString name : {"Clip", "Notes", "Time", "Date", "Restart", "Shut"})
        expected << "Command(" + name + ").Enabled=1"
                 << "Command(" + name + ").Visible=1";
    expected << "Commands.Add(CloseQuorl,Close Quorl,(Quit Quorl | Close Quorl),1,1)"
             << "Commands.Add(Yes,Yes,(Yes),0,0)"
             << "Commands.Add(No,No,(No),0,0)"
             << "Commands.Add( , , ,0,1)";
    EXPECT_EQ(fp.agent->calls, expected);
    EXPECT_EQ(fp.store.valueCount(), 12);

    // Stored voice texts are the grammars; an enable flag acts by the number its text begins with.
    fp.store.setValue("TimeCmd", "Tell me the time");
    fp.store.setValue("ClipCmd", "(Read|Clip)");
    fp.store.setValue("EnNotes", "0");
    fp.store.setValue("EnDate", "2");
    SetVoiceCommands(app);
    EXPECT_EQ(character().Commands().Command("Time").Voice(), "Tell me the time");
    EXPECT_EQ(character().Commands().Command("Clip").Voice(), "(Read|Clip)");
    EXPECT_EQ(fp.store.value("TimeCmd"), "Tell me the time");
    platform::AgentCommand &notes = character().Commands().Command("Notes"),
                           &date = character().Commands().Command("Date");
    EXPECT_FALSE(notes.Enabled() || notes.Visible());
    EXPECT_TRUE(date.Enabled() && date.Visible());
}

TEST_F(VoiceCommandsTest, WithoutSpeechInputTheValuesAreReadAndTheListIsUntouched)
{
    character().Commands().Add(" 1", "Editor", "Editor", true, true);
    fp.agent->calls.clear();
    fp.agent->speechInputInstalled = false;
    SetVoiceCommands(app);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_EQ(character().Commands().Count(), 1);
    EXPECT_EQ(fp.store.value("RestartCmd"), "Restart Windows");
    EXPECT_EQ(fp.store.value("EnRestart"), std::nullopt);
}

// What a rebuild makes shows in the calls of the first one, which begins by removing all.
TEST_F(VoiceCommandsTest, AFailedEntryIsReportedAndTheRestIsBuilt)
{
    fp.agent->failCalls("Commands.Add(Notes", Refused);
    SetVoiceCommands(app);
    QStringList names;
    for (int i = 0; i < character().Commands().Count(); ++i)
        names << character().Commands().At(i).Name();
    EXPECT_EQ(names, QStringList({"Clip", "Time", "Date", "Shut", "Restart", "CloseQuorl", "Yes",
                                  "No", " "}));
    // Only the Add is reported: the flag's search for the missing entry fails with an
    // error that the reporter passes over.
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 5 )"));
}

TEST_F(VoiceCommandsTest, EnableVoiceCommReportsAFailureAndShowVoiceCommsIgnoresThem)
{
    SetVoiceCommands(app);
    fp.agent->calls.clear();
    fp.agent->failCalls("Commands.Command(Time", Refused);
    EnableVoiceComm(app, "Time", "EnTime");
    EXPECT_TRUE(fp.agent->callsStartingWith("Command(Time)").isEmpty());
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 15 )"));

    fp.dialogs.boxes.clear();
    fp.agent->calls.clear();
    ShowVoiceComms(app, false);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Visible=0"});

    fp.agent->failCalls("Commands.Visible", Refused);
    ShowVoiceComms(app, false);
    app.Character = nullptr;
    ShowVoiceComms(app, true);
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}
