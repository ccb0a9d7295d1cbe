#include "Listening.h"
#include "TestSpeech.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace
{

using listentest::Voice;

struct Tally {
    int total = 0;
    int right = 0;    // the expected name, or nothing where nothing is expected
    int accepted = 0; // any name at all
    double rightShare() const { return double(right) / total; }
    double acceptedShare() const { return double(accepted) / total; }
};

class AccuracyTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(recognizer.installed());
        recognizer.setPhrases(listentest::commandTable());
    }

    // Prints each miss, so a drop in the shares can be traced to its utterances.
    void expect(Tally& tally, const QString& wav, const QString& expectedName, const QString& what)
    {
        ASSERT_FALSE(wav.isEmpty()) << "could not synthesise " << what.toStdString();
        const listentest::Heard heard = listentest::listen(recognizer, wav);
        ASSERT_TRUE(heard.answered) << what.toStdString();
        ++tally.total;
        tally.right += heard.name == expectedName;
        tally.accepted += !heard.name.isEmpty();
        if (heard.name != expectedName)
            std::printf("  miss %-50s heard \"%s\" -> \"%s\" (%.1f)\n", qPrintable(what),
                        qPrintable(heard.words), qPrintable(heard.name), heard.confidence);
    }

    // Every phrase a user would say for the table: both alternatives of "Close Quorl".
    Tally commandsBy(const std::vector<Voice>& voices)
    {
        Tally tally;
        for (const Voice& voice : voices)
            for (const agent::VoicePhrase& entry : listentest::commandTable())
                for (const QString& alternative :
                     QString(entry.voice).remove('(').remove(')').split('|')) {
                    const QString text = alternative.trimmed();
                    expect(tally, listentest::spokenWav(text, voice), entry.name,
                           voice.label() + ": " + text);
                }
        return tally;
    }

    agent::listen::PocketSphinxRecognizer recognizer;
};

TEST_F(AccuracyTest, DefaultThresholdHearsCommandsAndRejectsTheRest)
{
    const Tally flite = commandsBy(listentest::fliteVoices());
    const Tally espeak = commandsBy(listentest::espeakVoices());
    std::vector<Voice> outsideVoices = listentest::fliteVoices();
    outsideVoices.push_back(listentest::espeakVoices().front());
    Tally outside;
    for (const Voice& voice : outsideVoices)
        for (const QString& sentence : listentest::outsideSentences())
            expect(outside, listentest::spokenWav(sentence, voice), QString(),
                   voice.label() + ": " + sentence);
    Tally noise;
    for (const QString& wav : listentest::noiseWavs())
        expect(noise, wav, QString(), wav);

    EXPECT_GE(flite.rightShare(), 0.95);
    EXPECT_GE(espeak.rightShare(), 0.85);
    EXPECT_LE(outside.acceptedShare(), 0.10);
    EXPECT_EQ(noise.total, 5);
    EXPECT_EQ(noise.accepted, 0);
}

} // namespace
