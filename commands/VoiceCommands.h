#pragma once

#include <QString>

struct App;

// The character's command list: the built-in entries with their voice texts and on/off flags.
void SetVoiceCommands(App& app);
void EnableVoiceComm(App& app, const QString& Comm, const QString& EntryName);
void ShowVoiceComms(App& app, bool Show);
