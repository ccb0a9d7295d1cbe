#include "agent/speech/SpeechTags.h"

#include "agent/speech/BalloonProgress.h"

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

struct WordEvent {
    int run;
    int position; // 1-based, in code points of the run's spoken text
    int length;
    qint64 sample; // within the run
};

struct TimelineCase {
    const char* name;
    QString taggedText;
    std::vector<WordEvent> events;
    std::vector<std::pair<qint64, const char16_t*>> shown; // at a sample of the utterance
};

// Run n starts at sample n * RunLength of the utterance.
constexpr qint64 RunLength = 1000;

TEST(BalloonProgress, ShownTextAtSample)
{
    const TimelineCase cases[] = {
        {"NothingBeforeTheFirstWord",
         u"Hi there"_qs,
         {{0, 4, 0, 100}, {0, 1, 2, 500}},
         {{0, u""}, {499, u""}, {500, u"Hi"}}},
        {"OverlappingSpansNeverShrink",
         u"It is 10:45 now"_qs,
         {{0, 7, 2, 100}, {0, 10, 2, 200}, {0, 8, 2, 300}, {0, 13, 3, 400}},
         {{150, u"It is 10:"},
          {250, u"It is 10:45"},
          {350, u"It is 10:45"},
          {450, u"It is 10:45 now"}}},
        {"MappedMinuteShowsItsOwnText",
         uR"(The time now is 2: \map="o5"="05"\.)"_qs,
         {{0, 1, 3, 0}, {0, 17, 2, 800}, {0, 20, 2, 900}},
         {{850, u"The time now is 2:"}, {900, u"The time now is 2: 05"}}},
        {"HiddenBalloonShowsNothing",
         uR"(\map="The time now is 2:"=""\\map="o5"=""\)"_qs,
         {{0, 1, 3, 0}, {0, 17, 2, 800}, {0, 19, 2, 900}},
         {{0, u""}, {900, u""}}},
        {"SecondRunCountsFromItsOwnStart",
         uR"(one two \spd=300\three four)"_qs,
         {{0, 1, 3, 0}, {0, 5, 3, 300}, {1, 1, 5, 0}, {1, 7, 4, 200}},
         {{999, u"one two"}, {1000, u"one two three"}, {1200, u"one two three four"}}},
        {"CodePointsBeyondTheBasicPlane",
         u"\U0001F600 is a smile"_qs,
         {{0, 1, 1, 0}, {0, 3, 2, 100}},
         {{0, u"\U0001F600"}, {100, u"\U0001F600 is"}}}};
    for (const TimelineCase& c : cases) {
        SCOPED_TRACE(c.name);
        const SpeechPlan plan = planSpeech(parseSpeechTags(c.taggedText, VoiceParams{}));
        ASSERT_EQ(plan.runs.size(), std::size_t(c.events.back().run + 1));
        SampleTimeline<qsizetype> marks;
        BalloonProgress progress(plan, marks);
        int run = -1;
        for (const WordEvent& e : c.events) {
            if (e.run != run) {
                run = e.run;
                progress.startRun(plan.runs[run], RunLength * run);
            }
            progress.word(e.position, e.length, e.sample);
        }
        for (const auto& [sample, shown] : c.shown)
            EXPECT_EQ(plan.shownText.left(marks.at(sample, 0)), QString::fromUtf16(shown))
                << "at sample " << sample;
    }
}

} // namespace
} // namespace agent::speech
