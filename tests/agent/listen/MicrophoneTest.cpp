#include "Listening.h"
#include "PrivateSoundServer.h"
#include "TestSpeech.h"
#include "agent/listen/ListeningTip.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

// The microphone of a private sound server hears what is played into its output.
TEST(Microphone, ListeningKeyHeldAroundSpokenWordsGivesTheCommand)
{
    speechtest::PrivateSoundServer server;
    if (!server.running())
        GTEST_SKIP() << "pulseaudio could not be started: " << server.error().toStdString();
    ASSERT_TRUE(server.useAndRecord()) << server.error().toStdString();
    ASSERT_TRUE(server.loopToMicrophone()) << server.error().toStdString();
    ASSERT_FALSE(QMediaDevices::defaultAudioInput().isNull());

    PocketSphinxRecognizer recognizer;
    ASSERT_TRUE(recognizer.installed());
    recognizer.setPhrases(listentest::commandTable());
    const QString wav = listentest::spokenWav("What is the date", {"flite", "slt", 0});
    ASSERT_FALSE(wav.isEmpty());

    QSignalSpy commands(&recognizer, &PocketSphinxRecognizer::commandRecognized);
    emit recognizer.listeningKey().pressed();
    ASSERT_TRUE(recognizer.isListening());
    EXPECT_EQ(recognizer.tip()->text(), QStringLiteral("Listening..."));
    ASSERT_TRUE(server.play(wav)) << server.error().toStdString();
    // The key stays down a moment after the words, as a speaker holds it: the server hands the
    // recording over in fragments, and the recogniser shows nothing of the audio it has until
    // the key comes up, so there is no condition to wait on.
    QTest::qWait(500);
    emit recognizer.listeningKey().released();
    EXPECT_FALSE(recognizer.isListening());
    ASSERT_TRUE(commands.wait(30000));
    EXPECT_EQ(commands.at(0).at(0).toString(), QStringLiteral("Date"));
    EXPECT_EQ(recognizer.tip()->text(), QStringLiteral("Heard: \"what is the date\""));
}

} // namespace
} // namespace agent::listen
