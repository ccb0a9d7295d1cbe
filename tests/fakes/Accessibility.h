#pragma once

#include <QAbstractSlider>
#include <QAccessible>
#include <QGroupBox>
#include <QWidget>
#include <gtest/gtest.h>
#include <map>

// Fails the running test for any control of the window that takes the focus but cannot be
// reached with Tab, has no accessible name (as a screen reader reads it) or only its group's
// title, or shares its name with a sibling. A slider must also offer its value.
inline void ExpectFocusableControlsNamed(QWidget& window)
{
    std::map<QWidget*, std::map<QString, QWidget*>> namesByParent;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->focusPolicy() == Qt::NoFocus || control->focusProxy())
            continue;
        const QString id = QString::fromLatin1(control->metaObject()->className()) +
                           QLatin1Char(' ') + control->objectName();
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
        if (!accessible) {
            ADD_FAILURE() << qPrintable(id) << " has no accessible interface";
            continue;
        }
        const QString name = accessible->text(QAccessible::Name).trimmed();
        const QString shown = name.isEmpty() ? id : name;
        EXPECT_TRUE(control->focusPolicy() & Qt::TabFocus)
            << qPrintable(shown) << " cannot be reached with Tab";
        if (name.isEmpty()) {
            ADD_FAILURE() << qPrintable(id) << " under "
                          << qPrintable(control->parentWidget()->metaObject()->className())
                          << " has no accessible name";
            continue;
        }
        for (QWidget* up = control->parentWidget(); up; up = up->parentWidget()) {
            if (auto* group = qobject_cast<QGroupBox*>(up)) {
                EXPECT_NE(name.toStdString(),
                          QString(group->title()).remove(QLatin1Char('&')).toStdString())
                    << qPrintable(id) << " is named only by its group's title";
            }
        }
        auto& siblings = namesByParent[control->parentWidget()];
        EXPECT_EQ(siblings.count(name), 0u) << "two controls are named " << qPrintable(name);
        siblings[name] = control;
        if (auto* slider = qobject_cast<QAbstractSlider*>(control)) {
            QAccessibleValueInterface* value = accessible->valueInterface();
            EXPECT_TRUE(value && value->currentValue().toInt() == slider->value())
                << qPrintable(name) << " does not offer its value";
        }
    }
}
