#include "core/MainWindow.h"

#include "core/App.h"
#include "core/OnTop.h"
#include "core/frmMain.h"

#include <QAction>
#include <QApplication>

void CreateIcon(App& app)
{
    if (!app.P.tray.Available())
        app.P.dialogs.MsgBox(
            platform::BoxIcon::Information, platform::BoxButtons::OK, QStringLiteral("Quorl"),
            QStringLiteral("This desktop has no system tray, so Quorl has no tray icon. Closing "
                           "the Quorl window or pressing its \"_\" button minimizes it instead "
                           "of hiding it; it stays on the task bar."));
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

void HideMainWindow(App& app)
{
    if (app.P.tray.Available())
        app.MainForm->hide();
    else
        app.MainForm->showMinimized();
}

void ToggleMainWindow(App& app)
{
    frmMain& f = *app.MainForm;
    if (f.isVisible() && !f.isMinimized()) {
        HideMainWindow(app);
        return;
    }
    f.showNormal();
    if (app.OnTop)
        SetOnTop(app, true);
    else
        f.activateWindow();
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
