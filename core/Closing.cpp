#include "core/App.h"
#include "core/frmMain.h"
#include "settings/OnTop.h"

#include <QAction>
#include <QApplication>

void frmMain::mnuViewTop_Click()
{
    const bool wasChecked = mnuViewTop->isChecked();
    SetOnTop(app, !wasChecked);
    mnuViewTop->setChecked(!wasChecked);
}

void frmMain::mnuFileSavenow_Click() {}

void frmMain::mnuFileExit_Click() {}

void frmMain::CreateIcon()
{
    app.P.tray.Create(QApplication::windowIcon(), QStringLiteral("Double Click to Show/Hide Quorl"),
                      [this] {
                          if (app.ModalOpen == 0)
                              ToggleMainWindow();
                      });
}

void frmMain::DeleteIcon() { app.P.tray.Delete(); }

void frmMain::ToggleMainWindow()
{
    setVisible(!isVisible());
    if (isVisible() && !app.OnTop)
        activateWindow();
    else if (isVisible() && app.OnTop)
        SetOnTop(app, true);
}
