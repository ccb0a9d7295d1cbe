#pragma once

#include "core/RecordFile.h"
#include "notes/NoteRecord.h"

#include <QString>
#include <cstdint>
#include <vector>

// Notes.cfg: fixed records with nothing before, between or behind them.

// The file in the data folder.
QString NotesFilePath(const QString& appPath);

// An open Notes.cfg, read record by record. Every failure throws platform::RuntimeError.
class NotesFileReader
{
public:
    explicit NotesFileReader(const QString& fileName);
    std::int16_t Count() const { return file_.Count(); }
    // Record number (from 1).
    NoteRecord Read(int number);
    // Its schedule fields alone.
    NoteRow ReadSchedule(int number);

private:
    RecordFile::Reader file_;
};

// Every note; an absent or empty file has none. Throws platform::RuntimeError.
std::vector<NoteRecord> ReadNotesFile(const QString& fileName);

// Replaces the file with the notes so that a failure half-way leaves the old file whole; no
// notes leave no file. Throws platform::RuntimeError.
void WriteNotesFile(const QString& fileName, const std::vector<NoteRecord>& notes);
