#pragma once

#include <QString>
#include <cstdint>

// The old run-time's conversions, which the program's rules are written against.
namespace Conversions
{

// The number that a text begins with (leading blanks allowed, sign, digits, one point);
// 0 for an empty text and for a text that begins with no number.
double Val(const QString& text);

// The number in a speech tag such as "\pit=120\".
inline double TagValue(const QString& tag)
{
    return Val(tag.mid(tag.indexOf(QLatin1Char('=')) + 1));
}

// The text without the blanks at either end, as the old run-time's Trim takes it: only
// blanks, not tabs or line ends.
QString Trim(const QString& text);

// The text form of a Boolean as stored in settings: "True" or "False".
inline QString BoolText(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// The shortest decimal text that reads back as the same 32-bit float: 3.1, 11, 10.2.
QString SingleText(float value);

// A number as the number formatter writes it: one blank before a positive number, " 12".
inline QString NumberText(long value)
{
    return value < 0 ? QString::number(value) : QLatin1Char(' ') + QString::number(value);
}

} // namespace Conversions
