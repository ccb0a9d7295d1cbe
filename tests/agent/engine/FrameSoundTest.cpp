#include "EngineTestSupport.h"
#include "PrivateSoundServer.h"
#include "SpeechAudio.h"
#include "TestCharacter.h"
#include "agent/engine/AgentEngine.h"
#include "agent/speech/EspeakSpeechOutput.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using agent::runtime::testing::waitFinished;
using Status = platform::AgentRequest;

constexpr double FirstHz = 1000;
constexpr double SecondHz = 2500;

// True when the tone stands far above its neighbourhood in the recording.
static bool toneHeard(const std::vector<qint16>& heard, double hz)
{
    const double level = speechtest::toneLevel(heard, hz);
    return level > 300 && level > 10 * speechtest::toneLevel(heard, hz * 1.37);
}

// A character whose Show animation has a sound in each of its two frames, under a private
// sound server: both are heard as the animation plays, alone and while another character
// speaks. The formats a sound may come in are WaveDecoderTest's.
TEST(FrameSoundTest, SoundsOfTheShowAnimationAreHeardWithTheSpeech)
{
    QTemporaryDir work;
    speechtest::PrivateSoundServer server;
    if (!server.running())
        GTEST_SKIP() << "pulseaudio could not be started: " << server.error().toStdString();
    ASSERT_TRUE(server.useAndRecord()) << server.error().toStdString();
    const QByteArray first = speechtest::soxTone(work, u"first"_qs, 11025, FirstHz, {});
    const QByteArray second = speechtest::soxTone(work, u"second"_qs, 11025, SecondHz, {});
    if (first.isEmpty() || second.isEmpty())
        GTEST_SKIP() << "sox cannot make the sounds";

    acs::CharacterData character = runtime::testing::fullCharacter();
    character.sounds = {first, second};
    acs::Animation& show = character.animations.front();
    show.frames[0].sound = 0;
    show.frames[0].duration = 30;
    show.frames[1].sound = 1;
    show.frames[1].duration = 60;
    const QString file = writeCharacterFile(work, character);

    auto output = std::make_unique<speech::EspeakSpeechOutput>();
    QSignalSpy synthesized(&output->synthesizer(), &speech::EspeakSynthesizer::synthesized);
    AgentEngine engine(std::move(output), std::make_unique<FakeRecognizer>());
    engine.Characters().Load(u"A"_qs, file);
    engine.Characters().Load(u"B"_qs, file);
    platform::AgentCharacter& shown = engine.Characters().Character(u"A"_qs);
    platform::AgentCharacter& speaker = engine.Characters().Character(u"B"_qs);
    shown.setIdleOn(false);
    speaker.setIdleOn(false);
    ASSERT_TRUE(waitFinished(speaker.Show(true)));

    for (const bool withSpeech : {false, true}) {
        SCOPED_TRACE(withSpeech ? "with speech" : "alone");
        ASSERT_TRUE(waitFinished(shown.Hide()));
        server.take();
        platform::Request speak;
        if (withSpeech)
            speak = speaker.Speak(u"The sounds of the other character play while I tell you "
                                  "what time it is."_qs);
        const platform::Request show = shown.Show();
        ASSERT_TRUE(waitFinished(show, 10000));
        EXPECT_EQ(show->Status(), Status::Complete);
        if (speak) {
            ASSERT_TRUE(waitFinished(speak, 20000));
            EXPECT_EQ(speak->Status(), Status::Complete);
        }
        // Both sounds have ended a second and a half after the animation began.
        const std::vector<qint16> heard = server.take(22050 * 3 / 2);
        EXPECT_TRUE(toneHeard(heard, FirstHz)) << "the first sound";
        EXPECT_TRUE(toneHeard(heard, SecondHz)) << "the second sound";
        if (speak) {
            ASSERT_EQ(synthesized.size(), 1);
            const auto spoken =
                synthesized.at(0).at(1).value<std::shared_ptr<const speech::SynthesizedSpeech>>();
            EXPECT_GT(double(speechtest::audibleSamples(heard)),
                      0.8 * double(speechtest::audibleSamples(spoken->samples)))
                << "the speech is heard in full";
        }
    }
}
