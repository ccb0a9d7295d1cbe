#include "core/App.h"
#include "core/frmMain.h"
#include "info/frmSplash.h"

#include <QTimer>

void frmMain::mnuFileAgent_Click()
{
    app.Agent1->setPropertySheetVisible(true);
}

void frmMain::mnuFileInstall_Click()
{
    app.P.shell.OpenUrl(InstallAgentPageUrl);
}

void frmMain::mnuFileDownload_Click()
{
    app.P.shell.OpenUrl(CharactersPageUrl);
}

void frmMain::mnuAboutSite_Click()
{
    app.P.shell.OpenUrl(HomePageUrl);
}

// From the menu the splash window stays until it is clicked.
void frmMain::mnuAboutSplash_Click()
{
    frmSplash splash(app, this);
    splash.Timer1->stop();
    app.P.showModal(splash);
}

void frmMain::Command1_Click()
{
    ToggleMainWindow();
}
