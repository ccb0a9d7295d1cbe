#include "apps/AppRecord.h"

#include "core/Cp1252.h"
#include "core/RecordFile.h"

using namespace AppRecordLayout;
using RecordFile::AppendInt16;
using RecordFile::Int16At;

QByteArray EncodeAppRecord(const AppRecord& record)
{
    QByteArray bytes;
    bytes.reserve(Length);
    bytes += Cp1252::FixedField(record.Title, TitleWidth);
    bytes += Cp1252::FixedField(record.Voice, VoiceWidth);
    bytes += Cp1252::FixedField(record.Path, PathWidth);
    AppendInt16(bytes, record.ShowInPopup);
    AppendInt16(bytes, record.VoiceActivated);
    return bytes;
}

AppRecord DecodeAppRecord(const QByteArray& bytes)
{
    const QByteArray whole = RecordFile::Completed(bytes, FlagsOffset, Length);

    AppRecord record;
    record.Title = Cp1252::ReadField(whole.mid(0, TitleWidth));
    record.Voice = Cp1252::ReadField(whole.mid(TitleWidth, VoiceWidth));
    record.Path = Cp1252::ReadField(whole.mid(TitleWidth + VoiceWidth, PathWidth));
    record.ShowInPopup = Int16At(whole, FlagsOffset);
    record.VoiceActivated = Int16At(whole, FlagsOffset + 2);
    return record;
}
