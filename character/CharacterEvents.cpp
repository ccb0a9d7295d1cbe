#include "core/frmMain.h"

void frmMain::Agent1_Click(const QString&, int, int, int, int) {}
void frmMain::Agent1_Show(const QString&, int) {}
void frmMain::Agent1_Hide(const QString&, int) {}
void frmMain::Agent1_IdleStart(const QString&) {}
void frmMain::Agent1_Shutdown() {}
void frmMain::cmdShow_Click() {}
