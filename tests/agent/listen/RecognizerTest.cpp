#include "TestSpeech.h"
#include "agent/listen/ListeningTip.h"
#include "agent/listen/SphinxDecoder.h"
#include "agent/listen/WavFile.h"
#include "platform/RuntimeError.h"

#include <QAudioDevice>
#include <QDir>
#include <QMediaDevices>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

struct RecognizerTest : ::testing::Test {
    void SetUp() override { ASSERT_TRUE(recognizer.installed()); }

    PocketSphinxRecognizer recognizer;
};

// Which phrase of a list is heard, and that a changed list takes effect, is checked through
// the options dialog (ChangedVoiceTextTest).
TEST_F(RecognizerTest, HearsWhatTheCommandListAndSwitchAllow)
{
    struct Case {
        std::vector<VoicePhrase> phrases;
        const char* said;
        const char* name;
        bool enabled = true;
    };
    const Case cases[] = {
        {{}, "Yes", ""},
        {listentest::commandTable(), "The weather is nice today", ""},
        {listentest::commandTable(), "Notes", "", false},
        {listentest::commandTable(), "Notes", "Notes"},
    };
    for (const Case& c : cases) {
        recognizer.setPhrases(c.phrases);
        recognizer.setEnabled(c.enabled);
        EXPECT_EQ(listentest::heardName(recognizer, listentest::spokenWav(c.said)), c.name)
            << c.said << " from " << c.phrases.size() << " phrases";
    }
    EXPECT_EQ(listentest::heardName(recognizer, listentest::noiseWav()), "");
}

TEST_F(RecognizerTest, HandsFreeCutsTheStreamIntoUtterances)
{
    recognizer.setPhrases(listentest::commandTable());
    const auto words = readSpeechWav(listentest::spokenWav("Clip Board"));
    ASSERT_TRUE(words);
    std::vector<std::int16_t> stream(16000, 0);
    stream.insert(stream.end(), words->begin(), words->end());
    stream.resize(stream.size() + 16000, 0);

    QSignalSpy commands(&recognizer, &PocketSphinxRecognizer::commandRecognized);
    recognizer.feedAudio(stream);
    EXPECT_FALSE(commands.wait(1000)) << "hands-free is off by default";

    recognizer.setHandsFree(true);
    for (std::size_t at = 0; at < stream.size(); at += 1600)
        recognizer.feedAudio(
            std::span(stream).subspan(at, std::min<std::size_t>(1600, stream.size() - at)));
    ASSERT_TRUE(commands.wait(30000));
    EXPECT_EQ(commands.at(0).at(0).toString(), QStringLiteral("Clip"));
    EXPECT_EQ(recognizer.tip()->text(), QStringLiteral("Heard: \"clip board\""));
}

// sphinxbase ends the process on a damaged file; the program must hear of it instead.
TEST(RecognizerModel, DamagedModelIsReportedAfterTheStart)
{
    QTemporaryDir dir;
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("en-us")));
    const QDir model(SphinxDecoder::modelFolder() + QStringLiteral("/en-us"));
    for (const QString& name : model.entryList(QDir::Files))
        ASSERT_TRUE(QFile::link(model.filePath(name), dir.filePath("en-us/" + name)));
    QFile damaged(dir.filePath(QStringLiteral("en-us/means")));
    ASSERT_TRUE(damaged.remove() && damaged.open(QIODevice::WriteOnly));
    damaged.write("not a model\n");
    damaged.close();
    PocketSphinxRecognizer recognizer(dir.path(), nullptr);
    QSignalSpy failed(&recognizer, &PocketSphinxRecognizer::listeningFailed);
    EXPECT_TRUE(recognizer.installed()) << "the files are there; loading comes later";
    ASSERT_TRUE(failed.wait(30000));
    EXPECT_EQ(failed.at(0).at(0).toInt(), platform::errors::SpeechInputError);
    EXPECT_EQ(failed.at(0).at(2).toString(),
              QStringLiteral("Speech input is not available: the speech recognition model in "
                             "\"%1\" could not be loaded.")
                  .arg(dir.path()));
    EXPECT_FALSE(recognizer.installed());

    EXPECT_FALSE(PocketSphinxRecognizer(dir.filePath(QStringLiteral("none")), nullptr).installed());
}

TEST_F(RecognizerTest, WithoutMicrophoneTheTipSaysSo)
{
    if (!QMediaDevices::audioInputs().isEmpty())
        GTEST_SKIP() << "this machine has a microphone";
    emit recognizer.listeningKey().pressed();
    EXPECT_FALSE(recognizer.isListening());
    ASSERT_TRUE(recognizer.tip());
    EXPECT_TRUE(recognizer.tip()->isVisible());
    EXPECT_EQ(recognizer.tip()->text(), QStringLiteral("No microphone found"));
}

} // namespace
} // namespace agent::listen
