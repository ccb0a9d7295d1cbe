#include "agent/engine/CharacterVoice.h"

namespace agent::engine
{

namespace
{

constexpr int DefaultPitchHz = 100;
constexpr int DefaultSpeedWpm = 150;

} // namespace

VoiceDefaults characterVoice(const acs::CharacterData& character)
{
    VoiceDefaults voice{DefaultPitchHz, DefaultSpeedWpm, 0};
    if (!character.voice)
        return voice;
    const acs::VoiceInfo& info = *character.voice;
    if (info.pitch != 0xFFFF && info.pitch > 0)
        voice.pitchHz = info.pitch;
    if (info.speed != 0xFFFFFFFFu && info.speed > 0 && info.speed <= 1000)
        voice.speedWpm = int(info.speed);
    if (info.extra && info.extra->gender <= 2)
        voice.gender = info.extra->gender;
    return voice;
}

} // namespace agent::engine
