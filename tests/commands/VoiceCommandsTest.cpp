#include "commands/VoiceCommands.h"

#include "fakes/CharacterFixture.h"

#include <gtest/gtest.h>

const platform::RuntimeError Refused(1234, "Agent.Control.1", "refused");

struct VoiceCommandsTest : CharacterFixture, ::testing::Test {
    QStringList names()
    {
        QStringList found;
        for (int i = 0; i < character().Commands().Count(); ++i)
            found << character().Commands().At(i).Name();
        return found;
    }
};

TEST_F(VoiceCommandsTest, ARebuildOnACleanStoreMakesTheTenEntriesInOrderAndTwelveValuesThenUsesThem)
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
    EXPECT_EQ(character().Commands().Caption(), "Quorl");
    EXPECT_TRUE(character().Commands().Visible());

    const std::pair<QString, QString> values[] = {
        {"TimeCmd", "What is the time"}, {"DateCmd", "What is the date"},
        {"ShutCmd", "Shut Down"},        {"NotesCmd", "Notes"},
        {"ClipCmd", "Clip Board"},       {"RestartCmd", "Restart Windows"}};
    for (const auto& [name, value] : values)
        EXPECT_EQ(fp.store.value(name), value) << name.toStdString();
    for (const QString flag :
         {"EnReadClip", "EnNotes", "EnTime", "EnDate", "EnRestart", "Shutdown"})
        EXPECT_EQ(fp.store.value(flag), "1") << flag.toStdString();
    EXPECT_EQ(fp.store.valueCount(), 12);

    // Stored voice texts are the grammars.
    fp.store.setValue("TimeCmd", "Tell me the time");
    fp.store.setValue("ClipCmd", "(Read|Clip)");
    SetVoiceCommands(app);
    EXPECT_EQ(character().Commands().Command("Time").Voice(), "Tell me the time");
    EXPECT_EQ(character().Commands().Command("Clip").Voice(), "(Read|Clip)");
    EXPECT_EQ(fp.store.value("TimeCmd"), "Tell me the time");
}

TEST_F(VoiceCommandsTest, AnEnableFlagActsByTheNumberItsTextBeginsWith)
{
    const struct {
        QString flag;
        bool on;
    } cases[] = {{"0", false},   {"1", true},   {"2", true},  {"abc", false},
                 {"0.0", false}, {" 1x", true}, {"-1", true}, {"x1", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.flag.toStdString());
        fp.store.setValue("EnNotes", c.flag);
        SetVoiceCommands(app);
        platform::AgentCommand& notes = character().Commands().At(1);
        EXPECT_EQ(notes.Name(), "Notes");
        EXPECT_EQ(notes.Enabled(), c.on);
        EXPECT_EQ(notes.Visible(), c.on);
        EXPECT_EQ(character().Commands().At(2).Name(), "Time");
        EXPECT_TRUE(character().Commands().At(0).Enabled());
    }
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

TEST_F(VoiceCommandsTest, ARebuildDropsTheApplicationsLeavesYesAndNoDisabledAndGoesPastAFailure)
{
    SetVoiceCommands(app);
    character().Commands().Add(" 1", "Editor", "Editor", true, true);
    character().Commands().Command("Yes").setEnabled(true);
    character().Commands().Command("No").setEnabled(true);

    SetVoiceCommands(app);

    EXPECT_EQ(names(), QStringList({"Clip", "Notes", "Time", "Date", "Shut", "Restart",
                                    "CloseQuorl", "Yes", "No", " "}));
    EXPECT_FALSE(character().Commands().Command("Yes").Enabled());
    EXPECT_FALSE(character().Commands().Command("No").Enabled());

    // A failed entry is reported and the rest is built.
    fp.agent->failCalls("Commands.Add(Notes", Refused);
    SetVoiceCommands(app);

    EXPECT_EQ(names(), QStringList({"Clip", "Time", "Date", "Shut", "Restart", "CloseQuorl", "Yes",
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

    // ShowVoiceComms switches the group only and ignores errors.
    fp.dialogs.boxes.clear();
    fp.agent->calls.clear();
    ShowVoiceComms(app, false);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Visible=0"});
    EXPECT_TRUE(character().Commands().Command("Clip").Visible());
    ShowVoiceComms(app, true);
    EXPECT_TRUE(character().Commands().Visible());

    fp.agent->failCalls("Commands.Visible", Refused);
    ShowVoiceComms(app, false);
    app.Character = nullptr;
    ShowVoiceComms(app, true);
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}
