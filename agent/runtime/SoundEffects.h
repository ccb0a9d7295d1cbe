#pragma once

#include "agent/EngineServices.h"

#include <QByteArray>
#include <memory>
#include <vector>

namespace agent::runtime
{

// Plays the character's frame sounds through the engine's audio output, mixed with its
// speech, fire and forget; a sound may outlast its frame. Each sound is decoded in memory the
// first time it plays; one that cannot be decoded stays silent.
class SoundEffects
{
public:
    SoundEffects(const std::vector<QByteArray>& sounds, SpeechOutput& output);

    void play(int index);

private:
    const std::vector<QByteArray>& sounds_;
    SpeechOutput& output_;
    std::vector<std::shared_ptr<const std::vector<qint16>>> decoded_;
};

} // namespace agent::runtime
