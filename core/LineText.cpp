#include "core/LineText.h"

#include <algorithm>

LineText& LineText::operator=(const QString& text)
{
    text_ = text;
    start_ = 0;
    return *this;
}

bool LineText::isBlank() const
{
    const QStringView rest = view();
    return std::all_of(rest.begin(), rest.end(), [](QChar c) { return c == QLatin1Char(' '); });
}

void LineText::clear()
{
    text_.clear();
    start_ = 0;
}

void LineText::dropFront(qsizetype count)
{
    start_ = std::min(start_ + count, text_.size());
}

void LineText::append(QStringView more)
{
    text_.remove(0, start_);
    start_ = 0;
    text_.append(more);
}
