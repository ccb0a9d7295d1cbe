#include "apps/AppRecord.h"

#include "core/Cp1252.h"

#include <QtEndian>

namespace
{

using namespace AppRecordLayout;

void appendFlag(QByteArray& bytes, std::int16_t flag)
{
    char little[2];
    qToLittleEndian(flag, little);
    bytes.append(little, 2);
}

std::int16_t flagAt(const QByteArray& bytes, int offset)
{
    return qFromLittleEndian<std::int16_t>(bytes.constData() + offset);
}

} // namespace

QByteArray EncodeAppRecord(const AppRecord& record)
{
    QByteArray bytes;
    bytes.reserve(Length);
    bytes += Cp1252::FixedField(record.Title, TitleWidth);
    bytes += Cp1252::FixedField(record.Voice, VoiceWidth);
    bytes += Cp1252::FixedField(record.Path, PathWidth);
    appendFlag(bytes, record.ShowInPopup);
    appendFlag(bytes, record.VoiceActivated);
    return bytes;
}

AppRecord DecodeAppRecord(const QByteArray& bytes)
{
    QByteArray whole = bytes.left(Length);
    if (whole.size() < FlagsOffset)
        whole.append(QByteArray(FlagsOffset - whole.size(), ' '));
    whole.append(QByteArray(Length - whole.size(), '\0'));

    AppRecord record;
    record.Title = Cp1252::ReadField(whole.mid(0, TitleWidth));
    record.Voice = Cp1252::ReadField(whole.mid(TitleWidth, VoiceWidth));
    record.Path = Cp1252::ReadField(whole.mid(TitleWidth + VoiceWidth, PathWidth));
    record.ShowInPopup = flagAt(whole, FlagsOffset);
    record.VoiceActivated = flagAt(whole, FlagsOffset + 2);
    return record;
}
