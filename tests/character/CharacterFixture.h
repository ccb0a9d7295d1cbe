#pragma once

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"

#include <QString>
#include <memory>

// The main window with its character control and the character "G" loaded, and voice tags
// set, without running Main.
struct CharacterFixture {
    fakes::FakePlatform fp;
    App app{fp.platform};

    // What SayText puts before every text with the whisper box clear.
    inline static const QString Tags =
        QStringLiteral("\\chr=\"normal\"\\\\pit=110\\\\spd=150\\\\vol=900\\");

    CharacterFixture()
    {
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        app.Agent1->setEventSink(app.MainForm.get());
        fp.agent->characters.Load(CharacterId, QStringLiteral("x.acs"));
        app.Character = &fp.agent->characters.Character(CharacterId);
        character().visible = true;
        app.PitchTag = QStringLiteral("\\pit=110\\");
        app.SpeedTag = QStringLiteral("\\spd=150\\");
        app.VolumeTag = QStringLiteral("\\vol=900\\");
        fp.agent->calls.clear();
    }

    fakes::FakeCharacter& character() { return *fp.agent->character(); }
    frmMain& form() { return *app.MainForm; }
};
