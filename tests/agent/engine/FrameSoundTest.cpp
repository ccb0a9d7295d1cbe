#include "EngineTestSupport.h"
#include "PrivateSoundServer.h"
#include "RequestWait.h"
#include "SoxTone.h"
#include "SpeechAudio.h"
#include "TestCharacter.h"
#include "agent/engine/AgentEngine.h"
#include "agent/speech/EspeakSpeechOutput.h"

#include <QFile>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;
using agent::runtime::testing::waitFinished;
using Status = platform::AgentRequest;

namespace
{

constexpr double AdpcmHz = 1000;
constexpr double Pcm8Hz = 2500;

// True when the tone stands far above its neighbourhood in the recording.
bool toneHeard(const std::vector<qint16>& heard, double hz)
{
    const double level = speechtest::toneLevel(heard, hz);
    return level > 300 && level > 10 * speechtest::toneLevel(heard, hz * 1.37);
}

// A character whose Show animation has an MS ADPCM sound and an 8-bit PCM sound, under a
// private sound server: the sounds are heard as the animation plays, alone and while another
// character speaks.
TEST(FrameSoundTest, SoundsOfTheShowAnimationAreHeardWithTheSpeech)
{
    QTemporaryDir work;
    speechtest::PrivateSoundServer server;
    if (!server.running())
        GTEST_SKIP() << "pulseaudio could not be started: " << server.error().toStdString();
    ASSERT_TRUE(server.useAndRecord()) << server.error().toStdString();
    const QByteArray adpcm =
        speechtest::soxTone(work, u"adpcm"_qs, 11025, AdpcmHz, {u"-e"_qs, u"ms-adpcm"_qs});
    const QByteArray pcm8 = speechtest::soxTone(
        work, u"pcm8"_qs, 8000, Pcm8Hz, {u"-b"_qs, u"8"_qs, u"-e"_qs, u"unsigned-integer"_qs});
    if (adpcm.isEmpty() || pcm8.isEmpty())
        GTEST_SKIP() << "sox cannot make the sounds";
    ASSERT_EQ(adpcm.at(20), 2) << "format tag 2, Microsoft ADPCM";
    ASSERT_EQ(pcm8.at(34), 8) << "8 bits a sample";

    acs::CharacterData character = runtime::testing::fullCharacter();
    character.sounds = {adpcm, pcm8};
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
        EXPECT_TRUE(toneHeard(heard, AdpcmHz)) << "the ADPCM sound";
        EXPECT_TRUE(toneHeard(heard, Pcm8Hz)) << "the 8-bit sound";
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

} // namespace
