#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <vector>

namespace speechtest
{

// A private PulseAudio server with a null output, started and stopped by a test, and a
// recording of what is played into it (22050 Hz, mono, 16-bit).
class PrivateSoundServer
{
public:
    PrivateSoundServer();
    ~PrivateSoundServer();

    bool running() const { return pid_ > 0; }
    QString error() const { return error_; }

    // Points the sound clients of this process at the server and starts recording; false
    // (with error()) when the recording does not flow.
    bool useAndRecord();
    // Lets the event loop run until `atLeast` samples have been recorded since the last
    // take, or timeoutMs has passed, and hands over what was recorded since then.
    std::vector<qint16> take(qsizetype atLeast = 0, int timeoutMs = 10000);

private:
    QTemporaryDir runtime_;
    QProcessEnvironment environment_;
    QProcess recorder_;
    QByteArray recorded_;
    QString error_;
    int pid_ = 0;
};

} // namespace speechtest
