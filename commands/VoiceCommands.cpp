#include "commands/VoiceCommands.h"

void SetVoiceCommands(App&) {}
void EnableVoiceComm(App&, const QString&, const QString&) {}
void ShowVoiceComms(App&, bool) {}
