#include "core/frmMain.h"

void frmMain::cmdDefaults_Click() {}
void frmMain::sdrPitch_Change() {}
void frmMain::sdrSpeed_Change() {}
void frmMain::sdrVolume_Change() {}
void frmMain::mnuViewVoice_Click() {}
