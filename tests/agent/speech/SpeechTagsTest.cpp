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
const VoiceParams TimeVoice{false, 100, 150, 65535};

struct TagCase {
    const char* name;
    QString text;
    std::vector<SpeechSegment> expected;
};

class SpeechTagsTest : public ::testing::TestWithParam<TagCase>
{
};

TEST_P(SpeechTagsTest, Segments)
{
    EXPECT_EQ(parseSpeechTags(GetParam().text, Start), GetParam().expected);
}

SpeechSegment plain(const QString& text, const VoiceParams& voice = Start)
{
    return {text, text, false, voice};
}

INSTANTIATE_TEST_SUITE_P(
    Tags, SpeechTagsTest,
    ::testing::Values(
        TagCase{"Empty", QString(), {}},
        TagCase{"WhisperThenNormal",
                uR"(\chr="whisper"\a\chr="Normal"\b)"_qs,
                {plain(u"a"_qs, {true, 90, 160, 65535}), plain(u"b"_qs)}},
        TagCase{"SpeedBetweenWords",
                uR"(one \spd=200\two)"_qs,
                {plain(u"one "_qs), plain(u"two"_qs, {false, 90, 200, 65535})}},
        TagCase{"VolumeClampsAtTop", uR"(\vol=70000\Hi)"_qs, {plain(u"Hi"_qs)}},
        TagCase{"Volume", uR"(\vol=1\Hi)"_qs, {plain(u"Hi"_qs, {false, 90, 160, 1})}},
        TagCase{
            "NamesIgnoreCase", uR"(\PIT=120\Hi)"_qs, {plain(u"Hi"_qs, {false, 120, 160, 65535})}},
        TagCase{"TagThatChangesNothingKeepsOneSegment", uR"(a \pit=90\b)"_qs, {plain(u"a b"_qs)}},
        TagCase{"MapWithBackslashInside",
                uR"(\map="C:\x"="shown"\)"_qs,
                {{uR"(C:\x)"_qs, u"shown"_qs, true, Start}}},
        TagCase{
            "TimeOfFourteenOFiveWithBalloon",
            uR"(\chr="normal"\\pit=100\\spd=150\\vol=65535\The time now is 2: \map="o5"="05"\.)"_qs,
            {plain(u"The time now is 2: "_qs, TimeVoice),
             {u"o5"_qs, u"05"_qs, true, TimeVoice},
             plain(u"."_qs, TimeVoice)}},
        TagCase{
            "TimeOfFourteenOFiveWithoutBalloon",
            uR"(\chr="normal"\\pit=100\\spd=150\\vol=65535\\map="The time now is 2:"=""\\map="o5"=""\)"_qs,
            {{u"The time now is 2:"_qs, QString(), true, TimeVoice},
             {u"o5"_qs, QString(), true, TimeVoice}}},
        TagCase{"MalformedNumberDropped", uR"(Hi \pit=abc\there)"_qs, {plain(u"Hi there"_qs)}},
        TagCase{"UnknownTagDropped", uR"(Hi \foo=1\there)"_qs, {plain(u"Hi there"_qs)}},
        TagCase{"UnknownCharacterDropped", uR"(Hi \chr="shout"\there)"_qs, {plain(u"Hi there"_qs)}},
        TagCase{"UnclosedMapDroppedToTheEnd", uR"(Hi \map="a"="b")"_qs, {plain(u"Hi "_qs)}},
        TagCase{"BackslashThatIsNoTagIsShownNotSpoken",
                uR"(C:\Temp\ is full)"_qs,
                {{u"C: Temp  is full"_qs, uR"(C:\Temp\ is full)"_qs, false, Start}}},
        TagCase{"TrailingBackslash", uR"(end\)"_qs, {{u"end "_qs, uR"(end\)"_qs, false, Start}}}),
    [](const ::testing::TestParamInfo<TagCase>& info) { return std::string(info.param.name); });

} // namespace
} // namespace agent::speech
