#pragma once

#include "core/NoteRow.h"

#include <QByteArray>
#include <QString>

// One note of Notes.cfg, its texts free of the blanks that fill their fields.
struct NoteRecord : NoteRow {
    QString NoteName;
    QString NoteText;

    bool operator==(const NoteRecord&) const = default;
};

// The record on disk: name 50 and text 500 bytes of Windows-1252 filled with blanks, then the
// eight schedule fields as little-endian 16-bit integers.
namespace NoteRecordLayout
{
constexpr int NameWidth = 50;
constexpr int TextWidth = 500;
constexpr int NumbersOffset = NameWidth + TextWidth;
constexpr int Length = NumbersOffset + 8 * 2;
} // namespace NoteRecordLayout

QByteArray EncodeNoteRecord(const NoteRecord& record);
// Bytes missing at the end of a short record read as blanks in the texts and 0 in the numbers.
NoteRecord DecodeNoteRecord(const QByteArray& bytes);
// The schedule fields alone, for the table that the scheduler walks.
NoteRow DecodeNoteRow(const QByteArray& bytes);
