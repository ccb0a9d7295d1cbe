#include "character/CharacterEvents.h"

#include "character/CurrentCharacter.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReadingState.h"
#include "core/frmMain.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>

using platform::BoxButtons;
using platform::BoxIcon;

void cmdShow_Click(App& app)
{
    platform::AgentCharacter& character = CurrentCharacter(app);
    if (character.Balloon().Visible()) {
        app.P.dialogs.MsgBox(BoxIcon::Information, BoxButtons::OK, QStringLiteral("Information"),
                             QStringLiteral("To stop him from speaking, click the right mouse "
                                            "button on the character and select 'Hide'."));
        return;
    }
    app.LastRequest = character.Visible() ? character.Hide() : character.Show();
}

void Agent1_Show(App& app)
{
    frmMain& f = *app.MainForm;
    f.cmdShow->setText(QStringLiteral("&Hide"));
    f.cmdShow->setToolTip(QStringLiteral("Hide ") + CurrentCharacter(app).Name());
    f.mnuQuorlTime->setEnabled(true);
    f.mnuQuorlDate->setEnabled(true);
    if (!ReadingActive(app))
        return;
    f.cmdCont->setEnabled(true);
    f.cmdShow->setEnabled(true);
    if (Conversions::Val(app.AnimateRead) == 1)
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
}

void Agent1_Hide(App& app)
{
    frmMain& f = *app.MainForm;
    f.cmdShow->setText(QStringLiteral("&Show"));
    f.cmdShow->setToolTip(QStringLiteral("Show ") + CurrentCharacter(app).Name());
    f.mnuQuorlTime->setEnabled(false);
    f.mnuQuorlDate->setEnabled(false);
    if (ReadingActive(app))
        PauseReading(app);
    // A hidden character must always be able to come back during a reading.
    f.cmdShow->setEnabled(true);
}

void Agent1_IdleStart(App& app)
{
    CurrentCharacter(app).Balloon().setVisible(false);
}

void Agent1_Shutdown(App& app)
{
    app.P.process.End();
}
