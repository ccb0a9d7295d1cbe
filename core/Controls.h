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
