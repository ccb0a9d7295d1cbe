#pragma once

#include <QString>
#include <vector>

namespace agent::speech
{

// The voice in force at a point of the text, as the tags set it.
struct VoiceParams {
    bool whisper = false;
    int pitchHz = 0;    // 0: the synthesiser's own pitch
    int speedWpm = 0;   // 0: the synthesiser's own rate
    int volume = 65535; // 0..65535

    bool operator==(const VoiceParams&) const = default;
};

// A piece of text spoken in one voice. For plain text the shown text is the spoken text,
// character for character; a \map tag makes a mapped segment whose texts differ freely.
struct SpeechSegment {
    QString spoken;
    QString shown;
    bool mapped = false;
    VoiceParams voice;

    bool operator==(const SpeechSegment&) const = default;
};

// Splits a text with speech tags (\chr="normal|whisper"\, \pit=N\, \spd=N\, \vol=N\,
// \map="spoken"="shown"\) into segments. Tags that are unknown or malformed are dropped; a
// backslash that starts no tag is shown but not spoken.
std::vector<SpeechSegment> parseSpeechTags(const QString& text, const VoiceParams& start);

} // namespace agent::speech
