#include "agent/speech/EspeakSpeechOutput.h"

#include "agent/EngineSettings.h"

#include <QDir>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

const VoiceDefaults TimeVoice{100, 150, 0};
const QString TimeLine =
    uR"(\chr="normal"\\pit=100\\spd=150\\vol=65535\The time now is 2: \map="o5"="05"\.)"_qs;

// No sound server: the test main's runtime folder is empty, and nothing may start a server.
struct EspeakSpeechOutputTest : ::testing::Test {
    void SetUp() override
    {
        qunsetenv("PULSE_SERVER");
        // A desktop session may name its sound server on the X display.
        qunsetenv("DISPLAY");
        QFile config(clientConfig.filePath(u"client.conf"_qs));
        ASSERT_TRUE(config.open(QIODevice::WriteOnly));
        config.write("autospawn = no\n");
        qputenv("PULSE_CLIENTCONFIG", config.fileName().toLocal8Bit());
        ASSERT_TRUE(output.available());
    }

    QTemporaryDir clientConfig;
    EspeakSpeechOutput output;
};

TEST_F(EspeakSpeechOutputTest, WithoutSoundServerSpeechTakesItsRealTime)
{
    QSignalSpy synthesized(&output.synthesizer(), &EspeakSynthesizer::synthesized);
    QSignalSpy balloon(&output, &SpeechOutput::balloonTextChanged);
    QSignalSpy mouth(&output, &SpeechOutput::mouthChanged);
    QSignalSpy finished(&output, &SpeechOutput::finished);
    QElapsedTimer clock;
    clock.start();
    output.speak(TimeLine, TimeVoice);
    ASSERT_TRUE(finished.wait(20000));
    const qint64 elapsed = clock.elapsed();
    ASSERT_EQ(synthesized.size(), 1);
    const qint64 expectedMs =
        synthesized.at(0).at(1).value<std::shared_ptr<const SynthesizedSpeech>>()->durationMs();
    ASSERT_GT(expectedMs, 1000);
    EXPECT_TRUE(finished.at(0).at(0).toBool());
    EXPECT_NEAR(double(elapsed), double(expectedMs), 0.3 * double(expectedMs));

    // Word by word: every text starts with the one before, and the last is the whole line.
    ASSERT_GE(balloon.size(), 4);
    for (qsizetype i = 1; i < balloon.size(); ++i)
        EXPECT_TRUE(balloon.at(i).at(0).toString().startsWith(balloon.at(i - 1).at(0).toString()));
    EXPECT_EQ(balloon.last().at(0).toString(), u"The time now is 2: 05."_qs);

    std::set<acs::Mouth> shapes;
    for (const QList<QVariant>& change : mouth)
        shapes.insert(change.at(0).value<acs::Mouth>());
    EXPECT_GE(shapes.size(), 4u);
    EXPECT_EQ(mouth.last().at(0).value<acs::Mouth>(), acs::Mouth::Closed);
}

TEST_F(EspeakSpeechOutputTest, StopEndsTheUtteranceAndTheNextOneRuns)
{
    QSignalSpy balloon(&output, &SpeechOutput::balloonTextChanged);
    QSignalSpy finished(&output, &SpeechOutput::finished);
    output.speak(u"This is a long sentence that will not be heard to its end."_qs, TimeVoice);
    ASSERT_TRUE(balloon.wait(5000));
    output.stop();
    ASSERT_EQ(finished.size(), 1);
    EXPECT_FALSE(finished.at(0).at(0).toBool());

    output.speak(u"First."_qs, TimeVoice);
    output.speak(u"Second."_qs, TimeVoice);
    ASSERT_EQ(finished.size(), 2);
    EXPECT_FALSE(finished.at(1).at(0).toBool());
    ASSERT_TRUE(finished.wait(5000));
    EXPECT_TRUE(finished.at(2).at(0).toBool());
    EXPECT_EQ(balloon.last().at(0).toString(), u"Second."_qs);
}

TEST_F(EspeakSpeechOutputTest, OnlyTagsOrTurnedOffStillFinish)
{
    QSignalSpy finished(&output, &SpeechOutput::finished);
    output.speak(uR"(\pit=100\\map=""=""\)"_qs, TimeVoice);
    ASSERT_TRUE(finished.wait(2000));

    EngineSettings::shared().setSpeechOutputEnabled(false);
    EXPECT_FALSE(output.available());
    output.speak(u"Hello there."_qs, TimeVoice);
    ASSERT_TRUE(finished.wait(5000));
    EXPECT_TRUE(finished.at(0).at(0).toBool());
    EXPECT_TRUE(finished.at(1).at(0).toBool());
    EngineSettings::shared().setSpeechOutputEnabled(true);
    EXPECT_TRUE(output.available());
}

} // namespace
} // namespace agent::speech
