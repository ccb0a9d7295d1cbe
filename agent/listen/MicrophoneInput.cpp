#include "agent/listen/MicrophoneInput.h"

#include <QAudioSource>
#include <QMediaDevices>
#include <cstring>

namespace agent::listen
{

MicrophoneInput::MicrophoneInput(QObject* parent) : QObject(parent) {}

MicrophoneInput::~MicrophoneInput()
{
    stop();
}

MicrophoneInput::Start MicrophoneInput::start()
{
    if (device_)
        return Start::Started;
    const QAudioDevice microphone = QMediaDevices::defaultAudioInput();
    if (microphone.isNull())
        return Start::NoMicrophone;
    QAudioFormat format;
    format.setSampleRate(16000);
    format.setChannelCount(1);
    format.setSampleFormat(QAudioFormat::Int16);
    source_ = std::make_unique<QAudioSource>(microphone, format);
    device_ = source_->start();
    if (!device_ || source_->error() != QAudio::NoError) {
        // The sound server refused the stream: another program holds the device.
        stop();
        return Start::Busy;
    }
    connect(device_, &QIODevice::readyRead, this, &MicrophoneInput::readAvailable);
    return Start::Started;
}

void MicrophoneInput::stop()
{
    if (device_)
        readAvailable();
    if (source_)
        source_->stop();
    device_ = nullptr;
    source_.reset();
    partial_.clear();
}

void MicrophoneInput::readAvailable()
{
    if (!device_)
        return;
    partial_ += device_->readAll();
    const qsizetype whole = partial_.size() / 2;
    if (whole == 0)
        return;
    std::vector<std::int16_t> samples(whole);
    std::memcpy(samples.data(), partial_.constData(), whole * 2);
    partial_.remove(0, whole * 2);
    emit captured(samples);
}

} // namespace agent::listen
