#pragma once

#include "fakes/LoadedProgram.h"

// The loaded program with its character visible and voice tags set, as after start-up.
struct CharacterFixture : fakes::LoadedProgram {
    // What SayText puts before every text with the whisper box clear.
    inline static const QString Tags = R"(\chr="normal"\\pit=110\\spd=150\\vol=900\)";

    CharacterFixture()
    {
        character().visible = true;
        app.PitchTag = R"(\pit=110\)";
        app.SpeedTag = R"(\spd=150\)";
        app.VolumeTag = R"(\vol=900\)";
    }

    // The texts of the general error boxes, which name the place of the error.
    QStringList errorBoxes() const { return fp.dialogs.texts("Unknown Error"); }
};
