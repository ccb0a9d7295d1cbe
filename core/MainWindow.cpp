#include "core/MainWindow.h"

#include "core/App.h"
#include "core/OnTop.h"
#include "core/frmMain.h"

#include <QAction>
#include <QApplication>

void CreateIcon(App& app)
{
    app.P.tray.Create(QApplication::windowIcon(), QStringLiteral("Double Click to Show/Hide Quorl"),
                      [&app] {
                          if (app.ModalOpen == 0)
                              ToggleMainWindow(app);
                      });
}

void DeleteIcon(App& app)
{
    app.P.tray.Delete();
}

void ToggleMainWindow(App& app)
{
    frmMain& f = *app.MainForm;
    f.setVisible(!f.isVisible());
    if (f.isVisible() && !app.OnTop)
        f.activateWindow();
    else if (f.isVisible() && app.OnTop)
        SetOnTop(app, true);
}

void Command1_Click(App& app)
{
    ToggleMainWindow(app);
}

void mnuViewTop_Click(App& app)
{
    QAction* mark = app.MainForm->mnuViewTop;
    const bool wasChecked = mark->isChecked();
    SetOnTop(app, !wasChecked);
    mark->setChecked(!wasChecked);
}

void mnuFileAgent_Click(App& app)
{
    app.Agent1->setPropertySheetVisible(true);
}

void mnuFileInstall_Click(App& app)
{
    app.P.shell.OpenUrl(InstallAgentPageUrl);
}

void mnuFileDownload_Click(App& app)
{
    app.P.shell.OpenUrl(CharactersPageUrl);
}

void mnuAboutSite_Click(App& app)
{
    app.P.shell.OpenUrl(HomePageUrl);
}
