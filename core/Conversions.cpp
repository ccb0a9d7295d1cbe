#include "core/Conversions.h"

#include <charconv>
#include <string>

namespace Conversions
{

double Val(const QString& text)
{
    int i = 0;
    const int n = int(text.size());
    while (i < n && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t')))
        ++i;
    QString number;
    if (i < n && (text[i] == QLatin1Char('-') || text[i] == QLatin1Char('+')))
        number += text[i++];
    bool point = false;
    bool digits = false;
    for (; i < n; ++i) {
        const QChar c = text[i];
        if (c.isDigit() && c.unicode() < 128) {
            number += c;
            digits = true;
        } else if (c == QLatin1Char('.') && !point) {
            number += c;
            point = true;
        } else {
            break;
        }
    }
    return digits ? number.toDouble() : 0.0;
}

QString SingleText(float value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QString::fromLatin1(buffer, int(result.ptr - buffer));
}

QString Trim(const QString& text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == QLatin1Char(' '))
        ++first;
    while (last > first && text[last - 1] == QLatin1Char(' '))
        --last;
    return text.mid(first, last - first);
}

} // namespace Conversions
