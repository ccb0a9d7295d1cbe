#include "core/App.h"
#include "core/Conversions.h"
#include "core/frmMain.h"
#include "settings/OnTop.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QLineEdit>
#include <QSlider>

using Conversions::BoolText;

namespace
{

QString CheckText(const QCheckBox* box)
{
    return box->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace

void frmMain::mnuViewTop_Click()
{
    const bool wasChecked = mnuViewTop->isChecked();
    SetOnTop(app, !wasChecked);
    mnuViewTop->setChecked(!wasChecked);
}

void frmMain::CreateIcon()
{
    app.P.tray.Create(QApplication::windowIcon(), QStringLiteral("Double Click to Show/Hide Quorl"),
                      [this] {
                          if (app.ModalOpen == 0)
                              ToggleMainWindow();
                      });
}

void frmMain::DeleteIcon()
{
    app.P.tray.Delete();
}

void frmMain::ToggleMainWindow()
{
    setVisible(!isVisible());
    if (isVisible() && !app.OnTop)
        activateWindow();
    else if (isVisible() && app.OnTop)
        SetOnTop(app, true);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    event->ignore();
    ToggleMainWindow();
}

void frmMain::SaveWindowSettings()
{
    const RegFunctions::Settings& s = app.Settings;
    if (SaveNow == 1 || mnuFileSave->isChecked()) {
        s.Write(QStringLiteral("WinY"), QString::number(TopTwips()));
        s.Write(QStringLiteral("WinX"), QString::number(LeftTwips()));
        s.Write(QStringLiteral("Pitch"), QString::number(sdrPitch->value()));
        s.Write(QStringLiteral("Speed"), QString::number(sdrSpeed->value()));
        s.Write(QStringLiteral("Volume"), QString::number(sdrVolume->value()));
        s.Write(QStringLiteral("ViewVoiceSettings"), BoolText(mnuViewVoice->isChecked()));
        s.Write(QStringLiteral("Top"), BoolText(mnuViewTop->isChecked()));
        s.Write(QStringLiteral("Whisper"), CheckText(chkWhisper));
        s.Write(QStringLiteral("Balloon"), CheckText(chkBalloon));
        s.Write(QStringLiteral("Ignore"), CheckText(chkIgnore));
        s.Write(QStringLiteral("IgnoreText"), txtIgnore->text());
        s.Write(QStringLiteral("IgnoreText1"), txtIgnore1->text());
        if (app.Character && app.Character->Visible()) {
            s.Write(QStringLiteral("Y"), QString::number(app.Character->Top()));
            s.Write(QStringLiteral("X"), QString::number(app.Character->Left()));
        }
    }
    s.Write(QStringLiteral("SaveSettings"), BoolText(mnuFileSave->isChecked()));
}

void frmMain::Form_Unload()
{
    if (SaveNow == 0)
        DeleteIcon();
    SaveWindowSettings();
}

void frmMain::mnuFileSavenow_Click()
{
    SaveNow = 1;
    Form_Unload();
    SaveNow = 0;
}

void frmMain::mnuFileExit_Click()
{
    Form_Unload();
    hide();
    app.P.process.End();
}
