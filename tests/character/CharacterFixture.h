#pragma once

#include "fakes/LoadedProgram.h"

#include <QString>

// The main window with its character control and the character "G" loaded, and voice tags
// set, without running Main.
struct CharacterFixture : fakes::LoadedProgram {

    // What SayText puts before every text with the whisper box clear.
    inline static const QString Tags =
        QStringLiteral("\\chr=\"normal\"\\\\pit=110\\\\spd=150\\\\vol=900\\");

    CharacterFixture()
    {
        character().visible = true;
        app.PitchTag = QStringLiteral("\\pit=110\\");
        app.SpeedTag = QStringLiteral("\\spd=150\\");
        app.VolumeTag = QStringLiteral("\\vol=900\\");
    }
};
