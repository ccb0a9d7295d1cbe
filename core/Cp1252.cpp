#include "core/Cp1252.h"

#include <QList>
#include <array>

namespace Cp1252
{

namespace
{

// The characters of bytes 0x80 to 0x9F. The five bytes that the code page leaves undefined
// map to the control characters of the same value, so that they survive a round trip.
constexpr std::array<char16_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char encodeCodePoint(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return char(c);
    for (std::size_t i = 0; i < HighControls.size(); ++i)
        if (HighControls[i] == c)
            return char(0x80 + i);
    return '?';
}

} // namespace

QByteArray Encode(const QString& text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const char32_t c : text.toUcs4())
        bytes.append(encodeCodePoint(c));
    return bytes;
}

QString Decode(QByteArrayView bytes)
{
    // Filled in place: whole text files of many megabytes pass through here.
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        *out++ = (b >= 0x80 && b < 0xA0) ? QChar(HighControls[b - 0x80]) : QChar(b);
    }
    return text;
}

QByteArray FixedField(const QString& text, int width)
{
    QByteArray field = Encode(text).left(width);
    field.append(QByteArray(width - field.size(), ' '));
    return field;
}

QString ReadField(const QByteArray& field)
{
    qsizetype begin = 0;
    qsizetype end = field.size();
    while (begin < end && field[begin] == ' ')
        ++begin;
    while (end > begin && field[end - 1] == ' ')
        --end;
    return Decode(field.mid(begin, end - begin));
}

} // namespace Cp1252
