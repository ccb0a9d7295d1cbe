#include "core/App.h"
#include "core/frmMain.h"
#include "settings/OnTop.h"

#include <QAction>

void frmMain::mnuViewTop_Click()
{
    const bool wasChecked = mnuViewTop->isChecked();
    SetOnTop(app, !wasChecked);
    mnuViewTop->setChecked(!wasChecked);
}

void frmMain::mnuFileSavenow_Click() {}

void frmMain::mnuFileExit_Click() {}
