#include "Listening.h"
#include "TestSpeech.h"
#include "agent/listen/ListeningTip.h"

#include <QAudioDevice>
#include <QMediaDevices>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace agent::listen
{
namespace
{

bool run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished(30000) && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

// A private sound server (in the test's own XDG_RUNTIME_DIR) whose microphone hears what is
// played into its null output.
class PrivateSoundServer
{
public:
    PrivateSoundServer()
    {
        started_ =
            run(QStringLiteral("pulseaudio"),
                {QStringLiteral("--daemonize=yes"), QStringLiteral("--exit-idle-time=-1"),
                 QStringLiteral("-n"), QStringLiteral("--load=module-null-sink sink_name=speaker"),
                 QStringLiteral("--load=module-native-protocol-unix"),
                 QStringLiteral("--load=module-remap-source master=speaker.monitor "
                                "source_name=microphone")}) &&
            run(QStringLiteral("pactl"),
                {QStringLiteral("set-default-source"), QStringLiteral("microphone")});
    }
    ~PrivateSoundServer()
    {
        if (started_)
            run(QStringLiteral("pulseaudio"), {QStringLiteral("--kill")});
    }
    bool started() const { return started_; }

    // Plays into the output that the microphone hears; returns at once.
    void play(const QString& wav)
    {
        player_.start(QStringLiteral("paplay"),
                      {QStringLiteral("-d"), QStringLiteral("speaker"), wav});
    }
    bool playing() const { return player_.state() != QProcess::NotRunning; }

private:
    bool started_ = false;
    QProcess player_;
};

TEST(Microphone, ListeningKeyHeldAroundSpokenWordsGivesTheCommand)
{
    PrivateSoundServer server;
    if (!server.started())
        GTEST_SKIP() << "pulseaudio could not start";
    ASSERT_FALSE(QMediaDevices::defaultAudioInput().isNull());

    PocketSphinxRecognizer recognizer;
    ASSERT_TRUE(recognizer.installed());
    recognizer.setPhrases(listentest::commandTable());
    const QString wav = listentest::spokenWav(QStringLiteral("What is the date"),
                                              {QStringLiteral("flite"), QStringLiteral("slt"), 0});
    ASSERT_FALSE(wav.isEmpty());

    QSignalSpy commands(&recognizer, &PocketSphinxRecognizer::commandRecognized);

    emit recognizer.listeningKey().pressed();
    ASSERT_TRUE(recognizer.isListening());
    EXPECT_EQ(recognizer.tip()->text(), QStringLiteral("Listening..."));
    server.play(wav);
    // The microphone delivers through the event loop while the words play.
    ASSERT_TRUE(QTest::qWaitFor([&] { return !server.playing(); }, 30000));
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
