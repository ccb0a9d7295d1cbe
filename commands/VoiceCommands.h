#pragma once

#include <QString>

struct App;

namespace platform
{
class AgentCommands;
}

// The character's command list: the built-in entries with their voice texts and on/off flags.
void SetVoiceCommands(App& app);
void EnableVoiceComm(App& app, const QString& Comm, const QString& EntryName);
void ShowVoiceComms(App& app, bool Show);

// The command list of the loaded character; throws platform::RuntimeError when none is loaded.
platform::AgentCommands& CharacterCommands(App& app);
