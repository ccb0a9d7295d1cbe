#include "core/Closing.h"

#include "core/App.h"
#include "core/Conversions.h"
#include "core/MainWindow.h"
#include "core/frmMain.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QSlider>

using Conversions::BoolText;

namespace
{

QString CheckText(const QCheckBox* box)
{
    return box->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

void SaveWindowSettings(App& app)
{
    const frmMain& f = *app.MainForm;
    const RegFunctions::Settings& s = app.Settings;
    if (f.SaveNow == 1 || f.mnuFileSave->isChecked()) {
        s.Write(QStringLiteral("WinY"), QString::number(f.TopTwips()));
        s.Write(QStringLiteral("WinX"), QString::number(f.LeftTwips()));
        // The tags hold the voice whole: a character's own pitch or speed beyond the sliders'
        // range shows on the slider only as its end.
        s.Write(QStringLiteral("Pitch"), QString::number(Conversions::TagValue(app.PitchTag)));
        s.Write(QStringLiteral("Speed"), QString::number(Conversions::TagValue(app.SpeedTag)));
        s.Write(QStringLiteral("Volume"), QString::number(f.sdrVolume->value()));
        s.Write(QStringLiteral("ViewVoiceSettings"), BoolText(f.mnuViewVoice->isChecked()));
        s.Write(QStringLiteral("Top"), BoolText(f.mnuViewTop->isChecked()));
        s.Write(QStringLiteral("Whisper"), CheckText(f.chkWhisper));
        s.Write(QStringLiteral("Balloon"), CheckText(f.chkBalloon));
        s.Write(QStringLiteral("Ignore"), CheckText(f.chkIgnore));
        s.Write(QStringLiteral("IgnoreText"), f.txtIgnore->text());
        s.Write(QStringLiteral("IgnoreText1"), f.txtIgnore1->text());
        if (app.Character && app.Character->Visible()) {
            s.Write(QStringLiteral("Y"), QString::number(app.Character->Top()));
            s.Write(QStringLiteral("X"), QString::number(app.Character->Left()));
        }
    }
    s.Write(QStringLiteral("SaveSettings"), BoolText(f.mnuFileSave->isChecked()));
}

} // namespace

bool Form_QueryUnload(App& app, UnloadMode mode)
{
    if (mode == UnloadMode::FormControlMenu) {
        ToggleMainWindow(app);
        return true;
    }
    if (mode == UnloadMode::AppTaskManager && app.Character)
        app.Character->Hide();
    return false;
}

void Form_Unload(App& app)
{
    if (app.MainForm->SaveNow == 0)
        DeleteIcon(app);
    SaveWindowSettings(app);
}

void mnuFileSavenow_Click(App& app)
{
    app.MainForm->SaveNow = 1;
    Form_Unload(app);
    app.MainForm->SaveNow = 0;
}

void UnloadAndEnd(App& app, UnloadMode mode)
{
    if (Form_QueryUnload(app, mode))
        return;
    Form_Unload(app);
    app.MainForm->hide();
    app.P.process.End();
}

void mnuFileExit_Click(App& app)
{
    UnloadAndEnd(app, UnloadMode::FormCode);
}
