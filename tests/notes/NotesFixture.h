#pragma once

#include "fakes/CharacterFixture.h"
#include "notes/LoadNotes.h"
#include "notes/NotesFile.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// A schedule row with its reminder on, the hour given on a 24-hour clock.
inline NoteRow Reminder(int kind, int hour, int minute, int every = 0, int day = 0, int year = 0)
{
    NoteRow row;
    row.Remind = 1;
    row.Kind = std::int16_t(kind);
    row.Every = std::int16_t(every);
    row.Day = std::int16_t(day);
    row.Year = std::int16_t(year);
    row.HourIndex = std::int16_t((hour + 11) % 12);
    row.MinuteIndex = std::int16_t(minute);
    row.AmPm = std::int16_t(hour >= 12 ? 1 : 0);
    return row;
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
