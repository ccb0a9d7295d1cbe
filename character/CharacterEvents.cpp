#include "character/CurrentCharacter.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/Main.h"
#include "core/frmMain.h"

#include <QAction>
#include <QPushButton>
#include <QTimer>

using platform::BoxButtons;
using platform::BoxIcon;

namespace
{
constexpr int LeftButton = 1;
constexpr int RightButton = 2;
} // namespace

void frmMain::cmdShow_Click()
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

void frmMain::Agent1_Show(const QString&, int)
{
    cmdShow->setText(QStringLiteral("&Hide"));
    cmdShow->setToolTip(QStringLiteral("Hide ") + CurrentCharacter(app).Name());
    mnuQuorlTime->setEnabled(true);
    mnuQuorlDate->setEnabled(true);
    if (!ReadingActive(app))
        return;
    cmdCont->setEnabled(true);
    cmdShow->setEnabled(true);
    if (Conversions::Val(app.AnimateRead) == 1)
        app.LastRequest = CurrentCharacter(app).Play(QStringLiteral("Read"));
}

void frmMain::Agent1_Hide(const QString&, int)
{
    cmdShow->setText(QStringLiteral("&Show"));
    cmdShow->setToolTip(QStringLiteral("Show ") + CurrentCharacter(app).Name());
    mnuQuorlTime->setEnabled(false);
    mnuQuorlDate->setEnabled(false);
    if (ReadingActive(app)) {
        cmdCont->setText(QStringLiteral("&Continue"));
        Timer2->stop();
        setWindowTitle(app.ReadingClip ? QStringLiteral("Quorl - Reading From Clip Board (Paused)")
                                       : QStringLiteral("Quorl - Reading ") + ReadFileName +
                                             QStringLiteral(" (Paused)"));
    }
    // A hidden character must always be able to come back during a reading.
    cmdShow->setEnabled(true);
}

void frmMain::Agent1_Click(const QString& characterId, int button, int, int, int)
{
    if (characterId != CharacterId)
        return;
    if (button == LeftButton) {
        if (Conversions::Val(app.Settings.ReadText(QStringLiteral("Click1"))) == 1)
            Read_Click();
    } else if (button == RightButton) {
        if (Conversions::Val(app.Settings.ReadText(QStringLiteral("Click"))) == 1 &&
            ReadingActive(app) && cmdCont->isEnabled())
            cmdCont_Click();
    }
}

void frmMain::Agent1_IdleStart(const QString&)
{
    CurrentCharacter(app).Balloon().setVisible(false);
}

void frmMain::Agent1_Shutdown()
{
    app.P.process.End();
}
