#include "settings/LoadSettings.h"

#include "character/ApplyVoiceDefaults.h"
#include "character/LoadCharacter.h"
#include "character/VoicePanel.h"
#include "character/VoiceTags.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/MainWindow.h"
#include "core/OnTop.h"
#include "core/ReportError.h"
#include "core/frmMain.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QSlider>
#include <cmath>

using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

const QString True = QStringLiteral("True");

bool IsOn(const QString& checkState)
{
    return Conversions::Val(checkState) == 1;
}

// A stored edge off the screen, negative or 0 puts the window in the middle of that axis, and
// the middle is stored.
void PlaceEdge(App& app, const QString& name, int screenSize, int windowSize,
               int (frmMain::*edge)() const, void (frmMain::*setEdge)(int))
{
    frmMain& f = *app.MainForm;
    const double stored = Conversions::Val(app.Settings.ReadText(name));
    if (screenSize - windowSize < stored || stored < 0)
        (f.*setEdge)(0);
    else
        (f.*setEdge)(int(stored));
    if ((f.*edge)() == 0) {
        (f.*setEdge)((screenSize - windowSize) / 2);
        app.Settings.Write(name, QString::number((f.*edge)()));
    }
}

// The stored voice value, or the character's default, stored, when there is none. The tag
// holds the value whole; the slider shows it within its range.
void LoadVoiceValue(App& app, const QString& name, QSlider* slider, QString& tag,
                    QString (*tagOf)(int))
{
    QString value = app.Settings.ReadText(name);
    if (value.isEmpty()) {
        ApplyVoiceDefaults(app);
        value = QString::number(Conversions::TagValue(tag));
        app.Settings.Write(name, value);
    }
    SetVoiceValue(*slider, tag, tagOf, int(std::nearbyint(Conversions::Val(value))));
}

void LoadWindowSettings(App& app)
{
    frmMain& f = *app.MainForm;
    const auto& s = app.Settings;
    const auto& screen = app.P.screen;
    RunSteps(
        app, true, 4.1f,
        {
            [&] {
                PlaceEdge(app, QStringLiteral("WinY"), screen.Height(), f.HeightTwips(),
                          &frmMain::TopTwips, &frmMain::setTopTwips);
            },
            [&] {
                PlaceEdge(app, QStringLiteral("WinX"), screen.Width(), f.WidthTwips(),
                          &frmMain::LeftTwips, &frmMain::setLeftTwips);
            },
            [&] { f.mnuFileSave->setChecked(s.Get(QStringLiteral("SaveSettings"), True) == True); },
            [&] {
                // The routine turns the mark over, so it is set to the opposite first.
                f.mnuViewVoice->setChecked(s.Get(QStringLiteral("ViewVoiceSettings"), True) !=
                                           True);
                mnuViewVoice_Click(app);
            },
            [&] {
                f.chkWhisper->setChecked(
                    IsOn(s.Get(QStringLiteral("Whisper"), QStringLiteral("0"))));
            },
            [&] {
                f.chkBalloon->setChecked(
                    IsOn(s.Get(QStringLiteral("Balloon"), QStringLiteral("0"))));
            },
            [&] {
                f.chkIgnore->setChecked(IsOn(s.Get(QStringLiteral("Ignore"), QStringLiteral("1"))));
            },
            [&] { f.txtIgnore->setText(s.Get(QStringLiteral("IgnoreText"), QStringLiteral(">"))); },
            [&] {
                f.txtIgnore1->setText(s.Get(QStringLiteral("IgnoreText1"), QStringLiteral("*")));
            },
            [&] {
                f.txtIgnore->setEnabled(f.chkIgnore->isChecked());
                f.txtIgnore1->setEnabled(f.chkIgnore->isChecked());
            },
            [&] { app.AnimateRead = s.Get(QStringLiteral("Animate"), QStringLiteral("0")); },
        });
}

void LoadCharacterSettings(App& app)
{
    frmMain& f = *app.MainForm;
    const auto& s = app.Settings;
    QString file;
    RunSteps(
        app, true, 4.2f,
        {
            [&] { file = s.ReadText(QStringLiteral("Character")); },
            [&] {
                if (!file.isEmpty() && !file.contains(QLatin1Char('/')))
                    file = app.AppPath + QLatin1Char('/') + file;
            },
            [&] {
                if (file.isEmpty())
                    app.P.dialogs.MsgBox(
                        BoxIcon::Information, BoxButtons::OK,
                        QStringLiteral("Please select a character.."),
                        QStringLiteral("This is your first time to run Quorl. Please "
                                       "select a character to be used."));
            },
            [&] { LoadCharacter(app, true, file, false); },
            [&] { CreateIcon(app); },
            [&] { app.ModalOpen = 0; },
            [&] {
                LoadVoiceValue(app, QStringLiteral("Pitch"), f.sdrPitch, app.PitchTag, PitchTagOf);
            },
            [&] {
                LoadVoiceValue(app, QStringLiteral("Speed"), f.sdrSpeed, app.SpeedTag, SpeedTagOf);
            },
            [&] {
                LoadVoiceValue(app, QStringLiteral("Volume"), f.sdrVolume, app.VolumeTag,
                               VolumeTagOf);
            },
            [&] {
                if (s.Get(QStringLiteral("Top"), QStringLiteral("False")) == True) {
                    SetOnTop(app, true);
                    f.mnuViewTop->setChecked(true);
                } else {
                    SetOnTop(app, false);
                }
            },
            [&] {
                if (IsOn(s.Get(QStringLiteral("StartMinimized"), QStringLiteral("1"))))
                    f.show();
                else
                    HideMainWindow(app);
            },
        });
}

} // namespace

void LoadSettings(App& app)
{
    LoadWindowSettings(app);
    LoadCharacterSettings(app);
}
