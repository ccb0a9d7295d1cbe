#pragma once

#include "platform/Platform.h"
#include "reading/LineText.h"
#include "reading/TextFile.h"
#include "settings/RegFunctions.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

class frmMain;
class frmShut;

// One run of the program: the platform it runs on and the module-wide state that the
// routines share. A test creates a fresh one for every case.
struct App {
    explicit App(platform::Platform& platform);
    ~App();

    platform::Platform& P;
    RegFunctions::Settings Settings;

    // Start-up
    QString AppPath;
    std::int16_t ModalOpen = 0;
    bool ConfirmPending = false;

    // The character control, created with frmMain, and the one character "G".
    std::unique_ptr<platform::Agent> Agent1;
    platform::AgentCharacter* Character = nullptr;
    platform::Request LastRequest;

    // Speech
    QString PitchTag;
    QString SpeedTag;
    QString VolumeTag;
    QString AnimateRead;

    // Reading
    bool ReadingClip = false;
    LineText LineBuffer;
    // The text file of a file reading, open while it lasts.
    TextFile ReadingFile;
    float ProgressScale = 1.0f;
    float ProgressPos = 0.0f;

    // Applications: slot 0 is never used.
    std::vector<QString> AppPaths = std::vector<QString>(1);

    // The main window's topmost state.
    bool OnTop = false;

    std::unique_ptr<frmMain> MainForm;
    // The shut-down confirmation, while it is loaded.
    std::unique_ptr<frmShut> ShutForm;
};

inline const QString CharacterId = QStringLiteral("G");
inline const QString HomePageUrl = QStringLiteral("https://quorl.kestrane.org");
inline const QString CharactersPageUrl = HomePageUrl + QStringLiteral("/quorl/characters.html");
inline const QString InstallAgentPageUrl = HomePageUrl + QStringLiteral("/quorl/installagent.html");
inline const QString SupportAddress = QStringLiteral("support@kestrane.org");
inline const QString AuthorName = QStringLiteral("The Kestrane developers");
