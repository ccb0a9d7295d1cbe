#include "agent/engine/AgentEngine.h"

#include "EngineTestSupport.h"
#include "FakeSpeechOutput.h"
#include "TestCharacter.h"
#include "agent/EngineSettings.h"
#include "agent/engine/EngineErrors.h"
#include "agent/runtime/BalloonWindow.h"
#include "agent/runtime/CharacterRuntime.h"
#include "agent/sheet/PropertySheet.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <set>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using agent::runtime::testing::FakeSpeechOutput;
using Status = platform::AgentRequest;

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
    }

    EngineCharacter& load(const QString& id = QStringLiteral("G"))
    {
        acs::CharacterData character = runtime::testing::fullCharacter();
        character.voice = acs::VoiceInfo{{}, {}, 177, 133, {}}; // words a minute, Hz
        character.flags |= acs::flags::VoiceTts;
        engine->Characters().Load(id, writeCharacterFile(folder, character));
        return engine->Characters().Character(id);
    }

    QTemporaryDir folder;
    FakeSpeechOutput* speech = nullptr;
    FakeRecognizer* recognizer = nullptr;
    RecordingEvents events;
    std::unique_ptr<AgentEngine> engine;
};

TEST_F(AgentEngineTest, LoadedCharacterReportsItsPropertiesAndRunsItsRequests)
{
    platform::AgentCharacter& loaded = load();
    EXPECT_EQ(std::tuple(loaded.Name(), loaded.Pitch(), loaded.Speed()),
              std::tuple(u"Testy"_qs, 133, 177));

    loaded.Show(true);
    const platform::Request wave = loaded.Play("wAVE");
    const platform::Request speak = loaded.Speak("hello there");
    ASSERT_TRUE(runtime::testing::waitFinished(speak));
    EXPECT_EQ(wave->Status(), Status::Complete) << "names are found in any case";
    EXPECT_EQ(std::pair(speech->lastVoice.pitchHz, speech->lastVoice.speedWpm),
              std::pair(133, 177));
}

TEST_F(AgentEngineTest, LoadLookupAndPlayFailuresAreRunTimeErrors)
{
    platform::AgentCharacter& loaded = load("K");
    const QString program = QCoreApplication::applicationFilePath();

    const std::tuple<const char*, std::function<void()>, std::int32_t, const char*> cases[] = {
        {"missing file", [&] { engine->Characters().Load("G", folder.filePath("none.acs")); },
         errors::CharacterFileMissing, "none.acs"},
        {"not a character file (this test program)",
         [&] { engine->Characters().Load("G", program); }, platform::errors::BadFileFormat,
         "engine_test"},
        {"unknown id", [&] { engine->Characters().Character("X"); }, errors::CharacterNotLoaded,
         "X"},
        {"unknown animation", [&] { loaded.Play("Dance"); }, errors::AnimationNotFound, "Dance"},
    };
    for (const auto& [name, call, number, mentions] : cases) {
        const platform::RuntimeError error = errorOf(call);
        EXPECT_EQ(error.Number, number) << name;
        EXPECT_TRUE(error.Description.contains(QString::fromLatin1(mentions))) << name;
    }
    engine->Characters().Unload("X");
}

TEST_F(AgentEngineTest, CharactersTakeTurnsOnTheOneSpeechChannel)
{
    EngineCharacter& g = load("G");
    EngineCharacter& h = load("H");
    g.Show(true);
    h.Show(true);
    const std::vector<platform::Request> requests = {
        g.Speak("gold green grey"), h.Speak("hot hazy high"), g.Speak("gone"), h.Speak("here")};

    std::set<QString> gSaw, hSaw;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            gSaw.insert(g.runtime().balloon().visibleText());
            hSaw.insert(h.runtime().balloon().visibleText());
            return std::all_of(requests.begin(), requests.end(), runtime::testing::isFinished);
        },
        5000));
    for (const platform::Request& request : requests)
        EXPECT_EQ(request->Status(), Status::Complete);
    // Spoken in call order, turn about: each character's own requests also in its call order.
    EXPECT_EQ(speech->spoken, (QStringList{"gold green grey", "hot hazy high", "gone", "here"}));
    // Each balloon shows its own character's words only: G's words start with g, H's with h.
    for (const auto& [saw, initial] : {std::pair{&gSaw, u'g'}, std::pair{&hSaw, u'h'}}) {
        EXPECT_GT(saw->size(), 2u);
        for (const QString& text : *saw)
            for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
                EXPECT_EQ(word.front(), initial) << text.toStdString();
    }
}

TEST_F(AgentEngineTest, EventsWaitForTheEventLoopNeedASinkAndMayThrow)
{
    EngineCharacter& loaded = load();
    loaded.Show(true);
    EXPECT_TRUE(events.events.isEmpty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !events.events.isEmpty(); }, 5000));
    engine->setEventSink(nullptr);
    QSignalSpy hidden(&loaded.runtime(), &runtime::CharacterRuntime::hidden);
    loaded.Hide();
    // The hide's event goes out as the character hides; a call queued after it runs later.
    ASSERT_TRUE(hidden.wait(2000));
    bool later = false;
    QMetaObject::invokeMethod(
        qApp, [&later] { later = true; }, Qt::QueuedConnection);
    ASSERT_TRUE(QTest::qWaitFor([&] { return later; }, 2000));
    EXPECT_EQ(events.events, QStringList{"Show G 0"});
    EXPECT_FALSE(loaded.Visible());

    struct Throwing : RecordingEvents {
        void Agent1_Show(const QString&, int) override
        {
            throw platform::RuntimeError(5, "x", "boom");
        }
    } throwing;
    engine->setEventSink(&throwing);
    emit recognizer->listeningFailed(platform::errors::SoundSystemBusy, platform::AgentSource,
                                     "the microphone is in use");
    loaded.Show(true);
    loaded.Hide();
    ASSERT_TRUE(QTest::qWaitFor([&] { return throwing.events.size() == 2; }, 2000));
    EXPECT_EQ(throwing.events, (QStringList{"Error -2147220713 Agent.Control.1", "Hide G 0"}))
        << "a throwing handler stays inside the engine";
}

TEST_F(AgentEngineTest, RecogniserHearsTheEnabledCommands)
{
    platform::AgentCommands& commands = load().Commands();
    commands.Add("Time", "What is the Time?", "What is the time", true, true);
    commands.Add("Yes", "Yes", "(Yes)", false, false);
    EXPECT_EQ(recognizer->phrases.size(), 1u);

    emit recognizer->commandRecognized("Yes");
    commands.Command("Yes").setEnabled(true);
    EXPECT_EQ(recognizer->phrases.size(), 2u);
    emit recognizer->commandRecognized("Yes");
    emit recognizer->commandRecognized("Time");
    // Events arrive in order: the last one's arrival shows whether the first fired.
    ASSERT_TRUE(QTest::qWaitFor([&] { return events.events.contains("Command Time"); }, 5000));
    EXPECT_EQ(events.events, (QStringList{"Command Yes", "Command Time"}))
        << "a disabled command does not fire";

    engine->Characters().Unload("G");
    EXPECT_TRUE(recognizer->phrases.empty());
}

TEST_F(AgentEngineTest, SpeechFlagsAndThePropertySheet)
{
    EXPECT_TRUE(engine->AudioOutputEnabled());
    EngineSettings::shared().setSpeechOutputEnabled(false);
    EXPECT_FALSE(engine->AudioOutputEnabled()) << "the user's switch";
    EngineSettings::shared().setSpeechOutputEnabled(true);
    speech->isAvailable = false;
    EXPECT_FALSE(engine->AudioOutputEnabled());
    EXPECT_TRUE(engine->SpeechInputInstalled());
    recognizer->isInstalled = false;
    EXPECT_FALSE(engine->SpeechInputInstalled());
    EXPECT_FALSE(engine->SpeechInputEnabled());

    AgentEngine deaf(std::make_unique<FakeSpeechOutput>(), nullptr);
    EXPECT_FALSE(deaf.SpeechInputInstalled());

    engine->setPropertySheetPage("Speech");
    engine->setPropertySheetVisible(true);
    EXPECT_TRUE(engine->propertySheet().isVisible());
    EXPECT_EQ(engine->propertySheet().page(), "Speech");
    EXPECT_TRUE(engine->propertySheet().isAncestorOf(recognizer->settingsPage))
        << "the speech page hosts the recogniser's controls";
    engine->setPropertySheetVisible(false);
    EXPECT_FALSE(engine->propertySheet().isVisible());
}
