#include "core/frmMain.h"

void frmMain::Agent1_Command(const platform::UserInput&) {}
