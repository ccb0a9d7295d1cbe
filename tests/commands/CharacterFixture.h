#pragma once

#include "fakes/LoadedProgram.h"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

// The main window with the fake control and the character "G" loaded, as after start-up.
class CharacterFixture : public ::testing::Test, protected fakes::LoadedProgram
{
protected:
    // The texts of the general error boxes, which name the place of the error.
    QStringList errorBoxes() const
    {
        QStringList texts;
        for (const fakes::Box& box : fp.dialogs.boxes)
            if (box.title == QLatin1String("Unknown Error"))
                texts << box.text;
        return texts;
    }
};
