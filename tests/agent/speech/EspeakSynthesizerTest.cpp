#include "agent/speech/EspeakSynthesizer.h"

#include "SpeechAudio.h"
#include "agent/speech/SpeechTags.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

struct EspeakSynthesizerTest : ::testing::Test {
    void SetUp() override { ASSERT_TRUE(synthesizer.loaded()); }

    std::shared_ptr<const SynthesizedSpeech> speak(const QString& taggedText)
    {
        QSignalSpy spy(&synthesizer, &EspeakSynthesizer::synthesized);
        synthesizer.synthesize(++id, planSpeech(parseSpeechTags(taggedText, VoiceParams{})), false);
        if (!spy.wait(20000))
            return nullptr;
        EXPECT_EQ(spy.at(0).at(0).toULongLong(), id);
        return spy.at(0).at(1).value<std::shared_ptr<const SynthesizedSpeech>>();
    }

    EspeakSynthesizer synthesizer;
    quint64 id = 0;
};

TEST_F(EspeakSynthesizerTest, RateVolumeAndWhisperShapeTheSound)
{
    // Six words as written; espeak-ng's rate counts written words of running text.
    const auto say = [this](const QString& tags) {
        return speak(tags + u"The time now is 2:25."_qs);
    };
    const auto speech = say(uR"(\spd=150\)"_qs);
    const auto slow = say(uR"(\spd=120\)"_qs);
    const auto fast = say(uR"(\spd=200\)"_qs);
    const auto whisper = say(uR"(\chr="whisper"\\spd=150\)"_qs);
    const auto half = say(uR"(\vol=32768\\spd=150\)"_qs);
    ASSERT_TRUE(speech && slow && fast && whisper && half);
    ASSERT_TRUE(speech->complete);
    EXPECT_GT(speechtest::rms(speech->samples), 1000);
    const double expectedMs = 6 * 60000.0 / 150;
    EXPECT_NEAR(double(speech->durationMs()), expectedMs, 0.3 * expectedMs);
    EXPECT_GT(slow->samples.size(), fast->samples.size() * 3 / 2);
    EXPECT_GT(speechtest::rms(whisper->samples), 100);
    EXPECT_LT(speechtest::lowFrequencyShare(whisper->samples) * 4,
              speechtest::lowFrequencyShare(speech->samples));
    EXPECT_NEAR(speechtest::rms(half->samples) / speechtest::rms(speech->samples), 0.5, 0.02);
}

TEST_F(EspeakSynthesizerTest, PitchIsHeardAtTheAskedHz)
{
    // From the default voice's low end to the female variant's range.
    const std::vector<int> pitches{70, 100, 150, 200, 280};
    for (const int hz : pitches) {
        const auto speech =
            speak(QStringLiteral("\\pit=%1\\Good morning, how are you today?").arg(hz));
        ASSERT_TRUE(speech);
        EXPECT_NEAR(speechtest::medianPitchHz(speech->samples), hz, 0.2 * hz) << hz << " Hz";
    }
}

TEST_F(EspeakSynthesizerTest, CancelCutsShortAndTheNextUtteranceWorks)
{
    QSignalSpy spy(&synthesizer, &EspeakSynthesizer::synthesized);
    const QString longText = u"This sentence is spoken again and again. "_qs.repeated(200);
    synthesizer.synthesize(++id, planSpeech(parseSpeechTags(longText, VoiceParams{})), false);
    synthesizer.cancel(id);
    ASSERT_TRUE(spy.wait(20000));
    EXPECT_FALSE(spy.at(0).at(1).value<std::shared_ptr<const SynthesizedSpeech>>()->complete);

    const auto next = speak(u"Hello."_qs);
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->complete);
    EXPECT_GT(speechtest::rms(next->samples), 1000);
}

} // namespace
} // namespace agent::speech
