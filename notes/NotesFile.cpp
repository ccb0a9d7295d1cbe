#include "notes/NotesFile.h"

#include <algorithm>

using NoteRecordLayout::Length;

QString NotesFilePath(const QString& appPath)
{
    return appPath + QStringLiteral("/Notes.cfg");
}

NotesFileReader::NotesFileReader(const QString& fileName) : file_(fileName, Length) {}

NoteRecord NotesFileReader::Read(int number)
{
    return DecodeNoteRecord(file_.Read(number));
}

NoteRow NotesFileReader::ReadSchedule(int number)
{
    return DecodeNoteRow(file_.Read(number));
}

std::vector<NoteRecord> ReadNotesFile(const QString& fileName)
{
    const std::vector<QByteArray> bytes = RecordFile::ReadAll(fileName, Length);
    std::vector<NoteRecord> notes(bytes.size());
    std::transform(bytes.begin(), bytes.end(), notes.begin(), DecodeNoteRecord);
    return notes;
}

void WriteNotesFile(const QString& fileName, const std::vector<NoteRecord>& notes)
{
    std::vector<QByteArray> bytes(notes.size());
    std::transform(notes.begin(), notes.end(), bytes.begin(), EncodeNoteRecord);
    RecordFile::Replace(fileName, bytes);
}
