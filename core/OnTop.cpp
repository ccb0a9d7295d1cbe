#include "core/OnTop.h"

#include "core/App.h"
#include "core/frmMain.h"

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
