#include "core/OnTop.h"

#include "core/App.h"
#include "core/frmMain.h"

#include <QAction>

void SetOnTop(App& app, bool flag)
{
    app.OnTop = flag;
    frmMain& window = *app.MainForm;
    // Changing the flags hides the window on X11, so a window that was shown is shown again.
    const bool wasVisible = window.isVisible();
    window.setWindowFlag(Qt::WindowStaysOnTopHint, flag);
    if (flag || wasVisible)
        window.show();
}

void LeaveWindowOverMain(App& app)
{
    app.ModalOpen = 0;
    if (app.MainForm && app.MainForm->mnuViewTop->isChecked())
        SetOnTop(app, true);
}
