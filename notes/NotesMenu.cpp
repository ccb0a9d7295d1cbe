#include "core/frmMain.h"

void frmMain::mnuQuorlReminders_Click() {}
