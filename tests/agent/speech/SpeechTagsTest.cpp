#include "agent/speech/SpeechTags.h"

#include <gtest/gtest.h>
#include <ostream>

namespace agent::speech
{

void PrintTo(const SpeechSegment& s, std::ostream* os)
{
    *os << "{spoken \"" << s.spoken.toStdString() << "\", shown \"" << s.shown.toStdString()
        << "\", mapped " << s.mapped << ", whisper " << s.voice.whisper << ", pit "
        << s.voice.pitchHz << ", spd " << s.voice.speedWpm << ", vol " << s.voice.volume << "}";
}

namespace
{

const VoiceParams Start{false, 90, 160, 65535};

SpeechSegment plain(const QString& text, const VoiceParams& voice = Start)
{
    return {text, text, false, voice};
}

TEST(SpeechTags, Segments)
{
    const std::tuple<const char*, QString, std::vector<SpeechSegment>> cases[] = {
        {"Empty", QString(), {}},
        {"WhisperThenNormal",
         uR"(\chr="whisper"\a\chr="Normal"\b)"_qs,
         {plain(u"a"_qs, {true, 90, 160, 65535}), plain(u"b"_qs)}},
        {"SpeedBetweenWords",
         uR"(one \spd=200\two)"_qs,
         {plain(u"one "_qs), plain(u"two"_qs, {false, 90, 200, 65535})}},
        {"VolumeClampsAtTop", uR"(\vol=70000\Hi)"_qs, {plain(u"Hi"_qs)}},
        {"Volume", uR"(\vol=1\Hi)"_qs, {plain(u"Hi"_qs, {false, 90, 160, 1})}},
        {"NamesIgnoreCase", uR"(\PIT=120\Hi)"_qs, {plain(u"Hi"_qs, {false, 120, 160, 65535})}},
        {"TagThatChangesNothingKeepsOneSegment", uR"(a \pit=90\b)"_qs, {plain(u"a b"_qs)}},
        {"MapWithBackslashInside",
         uR"(\map="C:\x"="shown"\)"_qs,
         {{uR"(C:\x)"_qs, u"shown"_qs, true, Start}}},
        {"MalformedNumberDropped", uR"(Hi \pit=abc\there)"_qs, {plain(u"Hi there"_qs)}},
        {"UnknownTagDropped", uR"(Hi \foo=1\there)"_qs, {plain(u"Hi there"_qs)}},
        {"UnknownCharacterDropped", uR"(Hi \chr="shout"\there)"_qs, {plain(u"Hi there"_qs)}},
        {"UnclosedMapDroppedToTheEnd", uR"(Hi \map="a"="b")"_qs, {plain(u"Hi "_qs)}},
        {"BackslashThatIsNoTagIsShownNotSpoken",
         uR"(C:\Temp\ is full)"_qs,
         {{u"C: Temp  is full"_qs, uR"(C:\Temp\ is full)"_qs, false, Start}}},
        {"TrailingBackslash", uR"(end\)"_qs, {{u"end "_qs, uR"(end\)"_qs, false, Start}}}};
    for (const auto& [name, text, expected] : cases)
        EXPECT_EQ(parseSpeechTags(text, Start), expected) << name;
}

} // namespace
} // namespace agent::speech
