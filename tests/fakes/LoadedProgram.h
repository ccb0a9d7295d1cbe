#pragma once

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"
#include "startup/Wiring.h"

#include <memory>

namespace fakes
{

// The main window with its character control, without running Main.
struct ProgramWindow {
    ProgramWindow()
    {
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        WireProgram(app);
    }

    frmMain& form() { return *app.MainForm; }
    // The character "G", once loaded.
    FakeCharacter& character() { return *fp.agent->character(); }

    FakePlatform fp;
    App app{fp.platform};
};

// The same with the character "G" loaded, as after start-up; the calls of loading are cleared.
struct LoadedProgram : ProgramWindow {
    LoadedProgram()
    {
        fp.agent->characters.Load(CharacterId, QStringLiteral("x.acs"));
        app.Character = &fp.agent->characters.Character(CharacterId);
        fp.agent->calls.clear();
    }
};

} // namespace fakes
