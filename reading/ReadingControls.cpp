#include "core/frmMain.h"

void frmMain::cmdCont_Click() {}
void frmMain::cmdNext_Click() {}
void frmMain::cmdTalk_Click() {}
void frmMain::Read_Click() {}
void frmMain::chkIgnore_Click() {}
