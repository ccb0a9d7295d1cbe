#include "Listening.h"
#include "TestSpeech.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace
{

using agent::listen::PocketSphinxRecognizer;
using listentest::Voice;

struct Tally {
    QString group;
    int total = 0;
    int right = 0;    // the expected name, or nothing where nothing is expected
    int accepted = 0; // any name at all
    double rightShare() const { return total ? double(right) / total : 0; }
    double acceptedShare() const { return total ? double(accepted) / total : 0; }
};

// Every phrase a user would say for the test table: both alternatives of "Close Quorl".
std::vector<std::pair<QString, QString>> spokenPhrases()
{
    std::vector<std::pair<QString, QString>> phrases;
    for (const agent::VoicePhrase& entry : listentest::commandTable()) {
        QString voice = entry.voice;
        voice.remove(QLatin1Char('(')).remove(QLatin1Char(')'));
        for (const QString& alternative : voice.split(QLatin1Char('|')))
            phrases.emplace_back(alternative.trimmed(), entry.name);
    }
    return phrases;
}

class AccuracyTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(recognizer.installed());
        recognizer.setPhrases(listentest::commandTable());
    }

    void expect(Tally& tally, const QString& wav, const QString& expectedName, const QString& what)
    {
        ASSERT_FALSE(wav.isEmpty()) << "could not synthesise " << what.toStdString();
        const listentest::Heard heard = listentest::listen(recognizer, wav);
        ASSERT_TRUE(heard.answered) << what.toStdString();
        ++tally.total;
        if (heard.name == expectedName)
            ++tally.right;
        if (!heard.name.isEmpty())
            ++tally.accepted;
        if (heard.name != expectedName || qEnvironmentVariableIsSet("LISTEN_TEST_VERBOSE"))
            std::printf("  %s %-50s heard \"%s\" -> \"%s\" (%.1f)\n",
                        heard.name == expectedName ? "ok  " : "miss", qPrintable(what),
                        qPrintable(heard.words), qPrintable(heard.name), heard.confidence);
    }

    Tally phrasesBy(const QString& group, const std::vector<Voice>& voices)
    {
        Tally tally{group};
        for (const Voice& voice : voices)
            for (const auto& [text, name] : spokenPhrases())
                expect(tally, listentest::spokenWav(text, voice), name,
                       voice.label() + QStringLiteral(": ") + text);
        return tally;
    }

    PocketSphinxRecognizer recognizer;
};

void printTable(const std::vector<Tally>& tallies)
{
    std::printf("\n%-30s %6s %8s %9s\n", "utterances", "count", "right", "accepted");
    for (const Tally& tally : tallies)
        std::printf("%-30s %6d %7.1f%% %8.1f%%\n", qPrintable(tally.group), tally.total,
                    100 * tally.rightShare(), 100 * tally.acceptedShare());
}

TEST_F(AccuracyTest, DefaultThresholdHearsCommandsAndRejectsTheRest)
{
    std::vector<Voice> outsideVoices = listentest::fliteVoices();
    outsideVoices.push_back(listentest::espeakVoices().front());

    Tally flite = phrasesBy(QStringLiteral("commands, flite"), listentest::fliteVoices());
    Tally espeak = phrasesBy(QStringLiteral("commands, espeak-ng"), listentest::espeakVoices());
    Tally outside{QStringLiteral("sentences outside grammar")};
    for (const Voice& voice : outsideVoices)
        for (const QString& sentence : listentest::outsideSentences())
            expect(outside, listentest::spokenWav(sentence, voice), QString(),
                   voice.label() + QStringLiteral(": ") + sentence);
    Tally noise{QStringLiteral("noises")};
    for (const QString& wav : listentest::noiseWavs())
        expect(noise, wav, QString(), wav);
    printTable({flite, espeak, outside, noise});

    EXPECT_EQ(noise.total, 5);
    EXPECT_GE(flite.rightShare(), 0.95);
    EXPECT_GE(espeak.rightShare(), 0.85);
    EXPECT_LE(outside.acceptedShare(), 0.10);
    EXPECT_EQ(noise.accepted, 0);
}

} // namespace
