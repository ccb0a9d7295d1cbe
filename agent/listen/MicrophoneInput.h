#pragma once

#include <QObject>
#include <cstdint>
#include <memory>
#include <vector>

class QAudioSource;
class QIODevice;

namespace agent::listen
{

// The default microphone through the sound server, as 16 kHz mono 16-bit samples.
class MicrophoneInput : public QObject
{
    Q_OBJECT
public:
    enum class Start { Started, NoMicrophone, Busy };

    explicit MicrophoneInput(QObject* parent = nullptr);
    ~MicrophoneInput() override;

    Start start();
    void stop();
    bool isRunning() const { return device_ != nullptr; }
    // Hands over at once what the sound server has delivered so far.
    void readAvailable();

signals:
    void captured(const std::vector<std::int16_t>& samples);

private:
    std::unique_ptr<QAudioSource> source_;
    QIODevice* device_ = nullptr; // owned by source_
    QByteArray partial_;          // an odd byte left from the last read
};

} // namespace agent::listen
