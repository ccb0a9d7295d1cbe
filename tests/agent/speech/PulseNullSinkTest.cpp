#include "SpeechAudio.h"
#include "agent/speech/EspeakSpeechOutput.h"

#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

// A private sound server with a null sink, started and stopped by the test.
class PrivateSoundServer
{
public:
    PrivateSoundServer()
    {
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(u"XDG_RUNTIME_DIR"_qs, runtime_.path());
        environment_.insert(u"HOME"_qs, runtime_.path());
        environment_.remove(u"PULSE_SERVER"_qs);
        QProcess daemon;
        daemon.setProcessEnvironment(environment_);
        daemon.start(u"pulseaudio"_qs, {u"--daemonize=yes"_qs, u"--exit-idle-time=-1"_qs, u"-n"_qs,
                                        u"--load=module-null-sink sink_name=dummy"_qs,
                                        u"--load=module-native-protocol-unix auth-anonymous=1"_qs});
        if (!daemon.waitForFinished(20000) || daemon.exitStatus() != QProcess::NormalExit ||
            daemon.exitCode() != 0) {
            error_ = QString::fromLocal8Bit(daemon.readAllStandardError());
            return;
        }
        QFile pidFile(runtime_.filePath(u"pulse/pid"_qs));
        if (pidFile.open(QIODevice::ReadOnly))
            pid_ = pidFile.readAll().trimmed().toInt();
        if (pid_ <= 0)
            error_ = u"pulseaudio left no pid file"_qs;
    }

    ~PrivateSoundServer()
    {
        if (pid_ <= 0)
            return;
        ::kill(pid_, SIGTERM);
        // The server removes its pid file as it exits; its folder can go after that.
        const QString pidFile = runtime_.filePath(u"pulse/pid"_qs);
        (void)QTest::qWaitFor([&] { return !QFile::exists(pidFile); }, 5000);
    }

    bool running() const { return pid_ > 0; }
    QString error() const { return error_; }
    QString runtimePath() const { return runtime_.path(); }
    QProcessEnvironment environment() const { return environment_; }

private:
    QTemporaryDir runtime_;
    QProcessEnvironment environment_;
    QString error_;
    int pid_ = 0;
};

std::vector<qint16> toSamples(const QByteArray& raw)
{
    std::vector<qint16> samples(raw.size() / 2);
    std::memcpy(samples.data(), raw.constData(), samples.size() * 2);
    return samples;
}

TEST(PulseNullSinkTest, SpeechReachesTheSoundServer)
{
    PrivateSoundServer server;
    if (!server.running())
        GTEST_SKIP() << "pulseaudio could not be started: " << server.error().toStdString();
    qputenv("XDG_RUNTIME_DIR", server.runtimePath().toLocal8Bit());
    qunsetenv("PULSE_SERVER");

    QProcess recorder;
    recorder.setProcessEnvironment(server.environment());
    recorder.start(u"parec"_qs, {u"-d"_qs, u"dummy.monitor"_qs, u"--raw"_qs, u"--format=s16le"_qs,
                                 u"--rate=22050"_qs, u"--channels=1"_qs});
    ASSERT_TRUE(recorder.waitForStarted(5000));
    // The monitor delivers silence while nothing plays; once it flows, recording is on.
    QByteArray recorded;
    for (int i = 0; i < 100 && recorded.size() < 4410; ++i) {
        recorder.waitForReadyRead(100);
        recorded += recorder.readAllStandardOutput();
    }
    ASSERT_GE(recorded.size(), 4410) << "parec records nothing";

    EspeakSpeechOutput output;
    QSignalSpy synthesized(&output.synthesizer(), &EspeakSynthesizer::synthesized);
    QSignalSpy finished(&output, &SpeechOutput::finished);
    output.speak(u"The time now is 2:25."_qs, VoiceDefaults{100, 150, 0});
    ASSERT_TRUE(finished.wait(10000));
    EXPECT_TRUE(finished.at(0).at(0).toBool());
    // The monitor hands over what was played a little later: wait until the speech has been
    // heard and a fifth of a second of silence follows it.
    constexpr std::size_t Pause = 4410;
    const auto speechPassed = [&] {
        recorder.waitForReadyRead(50);
        recorded += recorder.readAllStandardOutput();
        const std::vector<qint16> heard = toSamples(recorded);
        return heard.size() > Pause && speechtest::audibleSamples(heard) > 0 &&
               speechtest::audibleSamples({heard.end() - Pause, heard.end()}) == 0;
    };
    EXPECT_TRUE(QTest::qWaitFor(speechPassed, 5000));
    recorder.kill();
    recorder.waitForFinished(2000);
    recorded += recorder.readAllStandardOutput();

    ASSERT_EQ(synthesized.size(), 1);
    const auto spoken = synthesized.at(0).at(1).value<std::shared_ptr<const SynthesizedSpeech>>();
    const std::vector<qint16> heard = toSamples(recorded);
    const double spokenAudible = double(speechtest::audibleSamples(spoken->samples));
    EXPECT_NEAR(double(speechtest::audibleSamples(heard)), spokenAudible, 0.3 * spokenAudible);
    EXPECT_GT(speechtest::rms(heard), 300);
}

} // namespace
} // namespace agent::speech
