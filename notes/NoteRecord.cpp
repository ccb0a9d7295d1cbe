#include "notes/NoteRecord.h"

#include "core/Cp1252.h"
#include "core/RecordFile.h"

#include <array>

using namespace NoteRecordLayout;

namespace
{

std::array<std::int16_t NoteRow::*, 8> Numbers()
{
    return {&NoteRow::Remind, &NoteRow::Kind,      &NoteRow::Every,       &NoteRow::Day,
            &NoteRow::Year,   &NoteRow::HourIndex, &NoteRow::MinuteIndex, &NoteRow::AmPm};
}

} // namespace

QByteArray EncodeNoteRecord(const NoteRecord& record)
{
    QByteArray bytes;
    bytes.reserve(Length);
    bytes += Cp1252::FixedField(record.NoteName, NameWidth);
    bytes += Cp1252::FixedField(record.NoteText, TextWidth);
    for (std::int16_t NoteRow::*field : Numbers())
        RecordFile::AppendInt16(bytes, record.*field);
    return bytes;
}

NoteRow DecodeNoteRow(const QByteArray& bytes)
{
    const QByteArray whole = RecordFile::Completed(bytes, NumbersOffset, Length);
    NoteRow row;
    int offset = NumbersOffset;
    for (std::int16_t NoteRow::*field : Numbers()) {
        row.*field = RecordFile::Int16At(whole, offset);
        offset += 2;
    }
    return row;
}

NoteRecord DecodeNoteRecord(const QByteArray& bytes)
{
    const QByteArray whole = RecordFile::Completed(bytes, NumbersOffset, Length);
    NoteRecord record;
    static_cast<NoteRow&>(record) = DecodeNoteRow(whole);
    record.NoteName = Cp1252::ReadField(whole.mid(0, NameWidth));
    record.NoteText = Cp1252::ReadField(whole.mid(NameWidth, TextWidth));
    return record;
}
