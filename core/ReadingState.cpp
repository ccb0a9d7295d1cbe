#include "core/ReadingState.h"

#include "core/App.h"
#include "core/ReportError.h"
#include "core/frmMain.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>

bool ReadingActive(const App& app)
{
    return app.MainForm->FileReadingOn() || app.ReadingClip;
}

void UpdateReadingControls(App& app)
{
    frmMain& f = *app.MainForm;
    const bool reading = ReadingActive(app);
    RunSteps(app, false, 13.0f,
             {
                 [&] { f.mnuFileOptions->setEnabled(!reading); },
                 [&] { f.cmdOptions->setEnabled(!reading); },
                 [&] { f.mnuQuorlApp->setEnabled(!reading); },
                 [&] { f.cmdStop->setEnabled(reading); },
                 [&] {
                     if (!reading)
                         f.cmdNext->setEnabled(false);
                     else if (!app.ReadingClip)
                         f.cmdNext->setEnabled(true);
                 },
                 [&] { f.cmdCont->setEnabled(reading); },
                 [&] { f.cmdShow->setEnabled(!reading); },
                 [&] { f.mnuFileRead->setEnabled(!reading); },
                 [&] { f.Read->setEnabled(!reading); },
             });
}

QString ReadingCaption(const App& app)
{
    return app.ReadingClip ? QStringLiteral("Quorl - Reading From Clip Board")
                           : QStringLiteral("Quorl - Reading ") + app.MainForm->ReadFileName;
}

void PauseReading(App& app)
{
    frmMain& f = *app.MainForm;
    f.cmdCont->setText(QStringLiteral("&Continue"));
    f.Timer2->stop();
    f.setWindowTitle(ReadingCaption(app) + QStringLiteral(" (Paused)"));
}
