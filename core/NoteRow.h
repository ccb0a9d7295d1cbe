#pragma once

#include <cstdint>

// A note's schedule: the eight 16-bit fields of its record in the order of the file. The
// fields after Remind are list positions of the notes window's controls, not clock values.
struct NoteRow {
    std::int16_t Remind = 0;
    std::int16_t Kind = 0;
    std::int16_t Every = 0;
    std::int16_t Day = 0;
    std::int16_t Year = 0;
    std::int16_t HourIndex = 0;
    std::int16_t MinuteIndex = 0;
    std::int16_t AmPm = 0;

    bool operator==(const NoteRow&) const = default;
};
