#include "clock/SayDate.h"
#include "clock/SayTime.h"
#include "core/frmMain.h"

void frmMain::mnuQuorlTime_Click()
{
    SayTime(app);
}
void frmMain::mnuQuorlDate_Click()
{
    SayDate(app);
}
