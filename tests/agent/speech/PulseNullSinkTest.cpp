#include "PrivateSoundServer.h"
#include "SpeechAudio.h"
#include "agent/speech/EspeakSpeechOutput.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

TEST(PulseNullSinkTest, SpeechReachesTheSoundServer)
{
    speechtest::PrivateSoundServer server;
    if (!server.running())
        GTEST_SKIP() << "pulseaudio could not be started: " << server.error().toStdString();
    ASSERT_TRUE(server.useAndRecord()) << server.error().toStdString();

    EspeakSpeechOutput output;
    QSignalSpy synthesized(&output.synthesizer(), &EspeakSynthesizer::synthesized);
    QSignalSpy finished(&output, &SpeechOutput::finished);
    output.speak(u"The time now is 2:25."_qs, VoiceDefaults{100, 150, 0});
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_TRUE(finished.at(0).at(0).toBool());
    ASSERT_EQ(synthesized.size(), 1);
    const auto spoken = synthesized.at(0).at(1).value<std::shared_ptr<const SynthesizedSpeech>>();
    // The whole utterance, and what the server still held as it ended.
    const std::vector<qint16> heard =
        server.take(qsizetype(spoken->samples.size()) + 22050 * 3 / 10, 5000);

    const double spokenAudible = double(speechtest::audibleSamples(spoken->samples));
    EXPECT_NEAR(double(speechtest::audibleSamples(heard)), spokenAudible, 0.3 * spokenAudible);
    EXPECT_GT(speechtest::rms(heard), 300);
}

} // namespace
} // namespace agent::speech
