#pragma once

#include "platform/Agent.h"
#include "platform/Dialogs.h"
#include "platform/RegistryStore.h"
#include "platform/System.h"
#include "platform/TrayIcon.h"

#include <functional>
#include <memory>

class QDialog;

namespace platform
{

// Everything the program needs of the outside world, handed to Main in one piece.
struct Platform {
    RegistryStore& store;
    Dialogs& dialogs;
    Clock& clock;
    Screen& screen;
    Clipboard& clipboard;
    Shell& shell;
    Power& power;
    Instance& instance;
    Process& process;
    EndRequests& endRequests;
    TrayIcon& tray;
    // Creates the character control; throws RuntimeError 339 when there is none.
    std::function<std::unique_ptr<Agent>()> createAgent;
    // Shows one of the program's windows modally and returns when it has closed.
    std::function<void(QDialog&)> showModal;
    // The character file that comes with the program; empty when none was found.
    QString bundledCharacter;
};

} // namespace platform
