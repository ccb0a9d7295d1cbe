#include "core/frmMain.h"

void frmMain::mnuFileRead_Click() {}
void frmMain::Timer2_Timer() {}
void frmMain::cmdStop_Click() {}
