#pragma once

#include <QObject>
#include <QString>
#include <QVariant>

// The free text that every control and window carries, used by the program as a marker.
inline QString Tag(const QObject* control)
{
    return control->property("Tag").toString();
}
inline void setTag(QObject* control, const QString& tag)
{
    control->setProperty("Tag", tag);
}

// What a screen reader says for a control with this caption or label: the text without its
// access-key marks, the blanks around it and a closing colon.
inline QString SpokenName(QString caption)
{
    caption.remove(QLatin1Char('&'));
    caption = caption.trimmed();
    if (caption.endsWith(QLatin1Char(':')))
        caption.chop(1);
    return caption;
}
