#include "agent/engine/AgentEngine.h"

#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "TestCharacter.h"
#include "agent/engine/EngineErrors.h"
#include "agent/sheet/EngineSettings.h"
#include "agent/sheet/PropertySheet.h"

#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using agent::runtime::testing::FakeSpeechOutput;
using Status = platform::AgentRequest;

namespace
{

class AgentEngineTest : public ::testing::Test
{
protected:
    AgentEngineTest()
    {
        auto speechOutput = std::make_unique<FakeSpeechOutput>(5);
        auto recognizerInput = std::make_unique<FakeRecognizer>();
        speech = speechOutput.get();
        recognizer = recognizerInput.get();
        EngineOptions options;
        options.seed = 5;
        options.timing.idleDelay = 60000;
        engine = std::make_unique<AgentEngine>(std::move(speechOutput), std::move(recognizerInput),
                                               options);
        engine->setEventSink(&events);
        character = runtime::testing::fullCharacter();
        character.voice = acs::VoiceInfo{};
        character.voice->pitch = 133;
        character.voice->speed = 177;
        character.flags |= acs::flags::VoiceTts;
    }

    platform::AgentCharacter& load()
    {
        engine->Characters().Load(QStringLiteral("G"), writeCharacterFile(folder, character));
        return engine->Characters().Character(QStringLiteral("G"));
    }

    static platform::RuntimeError errorOf(const std::function<void()>& call)
    {
        try {
            call();
        } catch (const platform::RuntimeError& error) {
            return error;
        }
        return {0, {}, {}};
    }

    bool waitForEvents(int count)
    {
        return QTest::qWaitFor([&] { return events.events.size() >= count; }, 5000);
    }

    QTemporaryDir folder;
    FakeSpeechOutput* speech = nullptr;
    FakeRecognizer* recognizer = nullptr;
    RecordingEvents events;
    acs::CharacterData character;
    std::unique_ptr<AgentEngine> engine;
};

TEST_F(AgentEngineTest, LoadsACharacterFileAndReportsItsProperties)
{
    platform::AgentCharacter& loaded = load();
    EXPECT_EQ(loaded.Name(), QStringLiteral("Testy"));
    EXPECT_EQ(loaded.Pitch(), 133);
    EXPECT_EQ(loaded.Speed(), 177);
    EXPECT_FALSE(loaded.Visible());
    EXPECT_FALSE(loaded.HasOtherClients());
    EXPECT_FALSE(loaded.Balloon().Visible());
    EXPECT_EQ(loaded.Left(), 0);

    const platform::Request move = loaded.MoveTo(120, -5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return move->Status() == Status::Complete; }, 2000));
    EXPECT_EQ(loaded.Left(), 120);
    EXPECT_EQ(loaded.Top(), -5);
}

TEST_F(AgentEngineTest, LoadAndLookupFailuresAreRunTimeErrors)
{
    QFile junk(folder.filePath(QStringLiteral("junk.acs")));
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly));
    junk.write("this is not a character file at all, just some text");
    junk.close();

    struct Case {
        const char* name;
        std::function<void()> call;
        std::int32_t number;
        const char* mentions;
    };
    const std::vector<Case> cases = {
        {"missing file",
         [&] { engine->Characters().Load("G", folder.filePath(QStringLiteral("none.acs"))); },
         errors::CharacterFileMissing, "none.acs"},
        {"not a character file", [&] { engine->Characters().Load("G", junk.fileName()); },
         platform::errors::BadFileFormat, "junk.acs"},
        {"folder instead of a file", [&] { engine->Characters().Load("G", folder.path()); },
         errors::CharacterFileMissing, ""},
        {"unknown id", [&] { engine->Characters().Character(QStringLiteral("X")); },
         errors::CharacterNotLoaded, "X"},
    };
    for (const Case& test : cases) {
        const platform::RuntimeError error = errorOf(test.call);
        EXPECT_EQ(error.Number, test.number) << test.name;
        EXPECT_EQ(error.Source, QStringLiteral("Agent.Control.1")) << test.name;
        EXPECT_TRUE(error.Description.contains(QString::fromLatin1(test.mentions))) << test.name;
    }
    engine->Characters().Unload(QStringLiteral("X"));
}

TEST_F(AgentEngineTest, PlayOfAnUnknownAnimationThrowsAtTheCall)
{
    platform::AgentCharacter& loaded = load();
    const platform::RuntimeError error = errorOf([&] { loaded.Play(QStringLiteral("Dance")); });
    EXPECT_EQ(error.Number, errors::AnimationNotFound);
    EXPECT_NE(error.Number, platform::errors::ElementNotFound);
    EXPECT_EQ(error.Source, QStringLiteral("Agent.Control.1"));
    EXPECT_TRUE(error.Description.contains(QStringLiteral("Dance")));

    loaded.Show(true);
    const platform::Request wave = loaded.Play(QStringLiteral("wAVE"));
    EXPECT_EQ(wave->Status(), Status::Pending);
    ASSERT_TRUE(QTest::qWaitFor([&] { return wave->Status() == Status::Complete; }, 2000));
}

TEST_F(AgentEngineTest, ShowHideAndSpeechRaiseTheirEvents)
{
    platform::AgentCharacter& loaded = load();
    loaded.Show();
    const platform::Request speak = loaded.Speak(QStringLiteral("hello there"));
    loaded.Hide();
    ASSERT_TRUE(waitForEvents(2));
    EXPECT_EQ(events.events, (QStringList{"Show G 0", "Hide G 0"}));
    EXPECT_EQ(speak->Status(), Status::Complete);
    EXPECT_EQ(speech->spoken, QStringList{QStringLiteral("hello there")});
    EXPECT_EQ(speech->lastVoice.pitchHz, 133);
    EXPECT_EQ(speech->lastVoice.speedWpm, 177);
}

TEST_F(AgentEngineTest, EventsWaitForTheEventLoopAndNeedASink)
{
    platform::AgentCharacter& loaded = load();
    loaded.Show(true);
    ASSERT_TRUE(waitForEvents(1));
    engine->setEventSink(nullptr);
    loaded.Hide();
    QTest::qWait(100);
    EXPECT_EQ(events.events.size(), 1);
    EXPECT_FALSE(loaded.Visible());
}

TEST_F(AgentEngineTest, RecogniserHearsTheEnabledCommands)
{
    platform::AgentCharacter& loaded = load();
    platform::AgentCommands& commands = loaded.Commands();
    commands.Add(QStringLiteral("Time"), QStringLiteral("What is the Time?"),
                 QStringLiteral("What is the time"), true, true);
    commands.Add(QStringLiteral("Yes"), QStringLiteral("Yes"), QStringLiteral("(Yes)"), false,
                 false);
    ASSERT_EQ(recognizer->phrases.size(), 1u);
    EXPECT_EQ(recognizer->phrases[0].name, QStringLiteral("Time"));
    EXPECT_EQ(recognizer->phrases[0].voice, QStringLiteral("What is the time"));

    emit recognizer->commandRecognized(QStringLiteral("Yes"));
    commands.Command(QStringLiteral("Yes")).setEnabled(true);
    EXPECT_EQ(recognizer->phrases.size(), 2u);
    emit recognizer->commandRecognized(QStringLiteral("Yes"));
    emit recognizer->commandRecognized(QStringLiteral("Time"));
    ASSERT_TRUE(waitForEvents(2));
    QTest::qWait(20);
    EXPECT_EQ(events.events, (QStringList{"Command Yes", "Command Time"}))
        << "a disabled command does not fire";

    engine->Characters().Unload(QStringLiteral("G"));
    EXPECT_TRUE(recognizer->phrases.empty());
}

TEST_F(AgentEngineTest, SpeechFlags)
{
    EXPECT_TRUE(engine->AudioOutputEnabled());
    EngineSettings::shared().setSpeechOutputEnabled(false);
    EXPECT_FALSE(engine->AudioOutputEnabled()) << "the user's switch";
    EngineSettings::shared().setSpeechOutputEnabled(true);
    speech->available_ = false;
    EXPECT_FALSE(engine->AudioOutputEnabled());
    EXPECT_TRUE(engine->SpeechInputInstalled());
    recognizer->installed_ = false;
    recognizer->enabled_ = false;
    EXPECT_FALSE(engine->SpeechInputInstalled());
    EXPECT_FALSE(engine->SpeechInputEnabled());

    AgentEngine deaf(std::make_unique<FakeSpeechOutput>(), nullptr);
    EXPECT_FALSE(deaf.SpeechInputInstalled());
}

TEST_F(AgentEngineTest, PropertySheetOpensOnThePageAsked)
{
    engine->setPropertySheetPage(QStringLiteral("Speech"));
    engine->setPropertySheetVisible(true);
    EXPECT_TRUE(engine->propertySheet().isVisible());
    EXPECT_EQ(engine->propertySheet().page(), QStringLiteral("Speech"));
    engine->setPropertySheetPage(QStringLiteral("Output"));
    EXPECT_EQ(engine->propertySheet().page(), QStringLiteral("Output"));
    engine->setPropertySheetVisible(false);
    EXPECT_FALSE(engine->propertySheet().isVisible());
}

TEST_F(AgentEngineTest, SpeechPageHostsTheRecognisersControls)
{
    engine->setPropertySheetPage(QStringLiteral("Speech"));
    EXPECT_NE(engine->propertySheet().findChild<QWidget*>(QStringLiteral("speech input controls")),
              nullptr);
}

TEST_F(AgentEngineTest, ListeningThatCannotStartIsRaisedAsAnError)
{
    emit recognizer->listeningFailed(platform::errors::SoundSystemBusy, platform::AgentSource,
                                     QStringLiteral("the microphone is in use"));
    ASSERT_TRUE(waitForEvents(1));
    EXPECT_EQ(events.events, QStringList{QStringLiteral("Error -2147220713 Agent.Control.1")});
}

TEST_F(AgentEngineTest, ThrowingHandlersStayInsideTheEngine)
{
    struct Throwing : RecordingEvents {
        void Agent1_Show(const QString&, int) override
        {
            throw platform::RuntimeError(5, QStringLiteral("x"), QStringLiteral("boom"));
        }
    } throwing;
    engine->setEventSink(&throwing);
    platform::AgentCharacter& loaded = load();
    loaded.Show(true);
    loaded.Hide();
    ASSERT_TRUE(QTest::qWaitFor([&] { return throwing.events.size() == 1; }, 2000));
    EXPECT_EQ(throwing.events, QStringList{"Hide G 0"});
}

} // namespace
