#include "core/frmMain.h"

void frmMain::mnuQuorlTime_Click() {}
void frmMain::mnuQuorlDate_Click() {}
