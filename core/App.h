#pragma once

#include "core/LineText.h"
#include "core/NoteRow.h"
#include "core/RegFunctions.h"
#include "core/TextFile.h"
#include "platform/Platform.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QDialog;
class frmMain;

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

    // The receiver of the control's events; it outlives the control that calls it.
    std::unique_ptr<platform::AgentEvents> Events;
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
    // Timer events can arrive while a tick lets the event queue run; a tick never starts
    // inside another.
    bool TickRunning = false;

    // Applications: slot 0 is never used.
    std::vector<QString> AppPaths = std::vector<QString>(1);

    // Notes: one schedule row per record of Notes.cfg; row 0 always exists and is never read.
    std::vector<NoteRow> NoteTable = std::vector<NoteRow>(1);

    // The main window's topmost state.
    bool OnTop = false;

    // Calls from a lower folder into a higher one, set by start-up: folders link downward only.
    struct Hooks {
        // SayText (character/, which all speech uses) starts readings (reading/) that speak via it.
        std::function<void(const QString& text)> StartLongTextReading;
        // LoadCharacter (character/) rebuilds the list of commands/, whose answers use SayText.
        std::function<void()> SetVoiceCommands;
        // frmApp (apps/) opens frmOptions (settings/), whose OK reloads the applications.
        std::function<void(int tab)> ShowOptions;
    } Hooks;

    std::unique_ptr<frmMain> MainForm;
    // The shut-down confirmation window (commands/), while it is loaded.
    std::unique_ptr<QDialog> ShutForm;
    // The one reminder window (notes/), while it is loaded; the record numbers of the
    // reminders that fell due while it was open, in the order they came up; and the reminder
    // passes under way (a tick can come while a pass waits for a window).
    std::unique_ptr<QDialog> RemindForm;
    std::vector<int> WaitingReminders;
    int RemindPasses = 0;
};

inline const QString CharacterId = QStringLiteral("G");
inline const QString HomePageUrl = QStringLiteral("https://quorl.kestrane.org");
inline const QString CharactersPageUrl = HomePageUrl + QStringLiteral("/quorl/characters.html");
inline const QString InstallAgentPageUrl = HomePageUrl + QStringLiteral("/quorl/installagent.html");
inline const QString SupportAddress = QStringLiteral("support@kestrane.org");
inline const QString AuthorName = QStringLiteral("The Kestrane developers");
