#include "agent/runtime/SoundEffects.h"

#include "agent/runtime/WaveDecoder.h"

#include <QLoggingCategory>

namespace agent::runtime
{

namespace
{

Q_LOGGING_CATEGORY(lcRuntime, "agent.runtime", QtWarningMsg)

} // namespace

SoundEffects::SoundEffects(const std::vector<QByteArray>& sounds, SpeechOutput& output)
    : sounds_(sounds), output_(output), decoded_(sounds.size())
{
}

void SoundEffects::play(int index)
{
    if (index < 0 || index >= int(sounds_.size()))
        return;
    auto& samples = decoded_[size_t(index)];
    if (!samples) {
        samples = std::make_shared<const std::vector<qint16>>(decodeWave(sounds_[size_t(index)]));
        if (samples->empty())
            qCWarning(lcRuntime) << "sound" << index << "cannot be decoded";
    }
    if (!samples->empty())
        output_.playSound(samples);
}

} // namespace agent::runtime
