#include "notes/NoteSchedule.h"

#include <gtest/gtest.h>

namespace
{

using namespace NoteSchedule;

// The window's tests run at one time of day; these are the hours around midnight and noon.
TEST(NoteScheduleTest, ThePresentTimeIsShownOnATwelveHourClock)
{
    const struct {
        int hour;
        int hourIndex;
        int amPm;
    } hours[] = {{0, 11, 0}, {1, 0, 0}, {11, 10, 0}, {12, 11, 1}, {13, 0, 1}, {23, 10, 1}};
    for (const auto& h : hours) {
        SCOPED_TRACE(h.hour);
        EXPECT_EQ(HourIndexOf(QTime(h.hour, 0)), h.hourIndex);
        EXPECT_EQ(AmPmIndexOf(QTime(h.hour, 0)), h.amPm);
    }
    // A minute box whose text is no entry has no position; the sentence shows that as it is.
    EXPECT_EQ(ReviewTime(QStringLiteral("12"), -1, QStringLiteral("PM")),
              QStringLiteral("12:-01 PM"));
    EXPECT_EQ(CompletedYear(QStringLiteral("05")), QStringLiteral("1905"));
}

} // namespace
