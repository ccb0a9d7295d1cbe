#pragma once

#include "fakes/CharacterFixture.h"
#include "notes/LoadNotes.h"
#include "notes/NotesFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// A schedule row with its reminder on, the hour given on a 24-hour clock.
inline NoteRow Reminder(std::int16_t kind, int hour, std::int16_t minute, std::int16_t every = 0,
                        std::int16_t day = 0, std::int16_t year = 0)
{
    const auto hourIndex = std::int16_t((hour + 11) % 12), amPm = std::int16_t(hour >= 12);
    return {1, kind, every, day, year, hourIndex, minute, amPm};
}

// The loaded program with its data folder in a temporary folder; the fake clock stands at
// Sunday 22 November 2026, 14:25.
class NotesFixture : public CharacterFixture, public ::testing::Test
{
protected:
    NotesFixture() { app.AppPath = dir.path(); }

    QString notesFile() const { return NotesFilePath(app.AppPath); }

    // Writes Notes.cfg and loads it.
    void notes(const std::vector<NoteRecord>& records)
    {
        WriteNotesFile(notesFile(), records);
        LoadNotes(app);
    }

    QTemporaryDir dir;
};
