#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

// Windows-1252, the code page of the fixed-width text fields in the program's data files and of
// text files that are not UTF-8, so that files written on the old platform load unchanged.
namespace Cp1252
{

// One byte per character; a character the code page cannot hold becomes "?".
QByteArray Encode(const QString& text);
QString Decode(QByteArrayView bytes);

// The text encoded, cut at width bytes or filled with blanks up to it.
QByteArray FixedField(const QString& text, int width);

// The field's text without the blanks on either side (only blanks, as the fields are filled
// with nothing else).
QString ReadField(const QByteArray& field);

} // namespace Cp1252
