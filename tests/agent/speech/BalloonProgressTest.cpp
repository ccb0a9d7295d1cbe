#include "agent/speech/BalloonProgress.h"

#include "agent/speech/SpeechTags.h"

#include <gtest/gtest.h>

namespace agent::speech
{
namespace
{

struct WordEvent {
    int run;
    int position; // 1-based, in code points of the run's spoken text
    int length;
    qint64 sample; // within the run
};

struct Expectation {
    qint64 sample; // within the utterance
    const char16_t* shown;
};

struct TimelineCase {
    const char* name;
    QString taggedText;
    std::vector<WordEvent> events;
    std::vector<Expectation> expected;
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
        for (const Expectation& e : c.expected)
            EXPECT_EQ(plan.shownText.left(marks.at(e.sample, 0)), QString::fromUtf16(e.shown))
                << "at sample " << e.sample;
    }
}

} // namespace
} // namespace agent::speech
