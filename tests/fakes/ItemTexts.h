#pragma once

#include <QListWidget>
#include <QStringList>

// The texts of a list's entries, top to bottom.
inline QStringList ItemTexts(const QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}
