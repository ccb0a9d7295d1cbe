#pragma once

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <csignal>
#include <cstring>
#include <vector>

namespace speechtest
{

// A private PulseAudio server with a null output, started and stopped by a test, and a
// recording of what is played into it (22050 Hz, mono, 16-bit).
class PrivateSoundServer
{
public:
    PrivateSoundServer()
    {
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(u"XDG_RUNTIME_DIR"_qs, runtime_.path());
        environment_.insert(u"HOME"_qs, runtime_.path());
        environment_.remove(u"PULSE_SERVER"_qs);
        QProcess server;
        server.setProcessEnvironment(environment_);
        server.start(u"pulseaudio"_qs, {u"--daemonize=yes"_qs, u"--exit-idle-time=-1"_qs, u"-n"_qs,
                                        u"--load=module-null-sink sink_name=dummy"_qs,
                                        u"--load=module-native-protocol-unix auth-anonymous=1"_qs});
        // The event loop runs meanwhile: this process's own sound clients may be waiting on it.
        const bool ended =
            QTest::qWaitFor([&] { return server.state() == QProcess::NotRunning; }, 30000);
        if (!ended || server.exitStatus() != QProcess::NormalExit || server.exitCode() != 0) {
            error_ = u"pulseaudio: "_qs + QString::fromLocal8Bit(server.readAllStandardError());
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
        if (recorder_.state() != QProcess::NotRunning) {
            recorder_.kill();
            recorder_.waitForFinished(2000);
        }
        if (pid_ <= 0)
            return;
        ::kill(pid_, SIGTERM);
        // The server removes its pid file as it exits; its folder can go after that.
        const QString pidFile = runtime_.filePath(u"pulse/pid"_qs);
        for (int i = 0; i < 50 && QFile::exists(pidFile); ++i)
            QThread::msleep(100);
    }

    bool running() const { return pid_ > 0; }
    QString error() const { return error_; }

    // Points the sound clients of this process at the server and starts recording; false
    // (with error()) when the recording does not flow.
    bool useAndRecord()
    {
        qputenv("XDG_RUNTIME_DIR", runtime_.path().toLocal8Bit());
        qunsetenv("PULSE_SERVER");
        recorder_.setProcessEnvironment(environment_);
        recorder_.start(u"parec"_qs,
                        {u"-d"_qs, u"dummy.monitor"_qs, u"--raw"_qs, u"--format=s16le"_qs,
                         u"--rate=22050"_qs, u"--channels=1"_qs, u"--latency-msec=50"_qs});
        if (!recorder_.waitForStarted(5000)) {
            error_ = u"parec does not start"_qs;
            return false;
        }
        // The monitor delivers silence while nothing plays; once it flows, recording is on.
        if (take(2205, 10000).size() < 2205) {
            error_ = u"parec records nothing"_qs;
            return false;
        }
        return true;
    }
    // Lets the event loop run until `atLeast` samples have been recorded since the last
    // take, or timeoutMs has passed, and hands over what was recorded since then.
    std::vector<qint16> take(qsizetype atLeast = 0, int timeoutMs = 10000)
    {
        // The caller judges what arrived in time by how much it gets.
        (void)QTest::qWaitFor(
            [&] {
                recorded_ += recorder_.readAllStandardOutput();
                return recorded_.size() / 2 >= atLeast;
            },
            timeoutMs);
        recorded_ += recorder_.readAllStandardOutput();
        std::vector<qint16> samples(size_t(recorded_.size() / 2));
        std::memcpy(samples.data(), recorded_.constData(), samples.size() * 2);
        recorded_.remove(0, qsizetype(samples.size()) * 2);
        return samples;
    }

private:
    QTemporaryDir runtime_;
    QProcessEnvironment environment_;
    QProcess recorder_;
    QByteArray recorded_;
    QString error_;
    int pid_ = 0;
};

} // namespace speechtest
