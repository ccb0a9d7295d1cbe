#include "character/VoicePanel.h"

#include "character/ApplyVoiceDefaults.h"
#include "character/VoiceTags.h"
#include "core/App.h"
#include "core/frmMain.h"

#include <QAction>
#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QSlider>

void cmdDefaults_Click(App& app)
{
    ApplyVoiceDefaults(app);
}

void sdrPitch_Change(App& app)
{
    app.PitchTag = PitchTagOf(app.MainForm->sdrPitch->value());
}

void sdrSpeed_Change(App& app)
{
    app.SpeedTag = SpeedTagOf(app.MainForm->sdrSpeed->value());
}

void sdrVolume_Change(App& app)
{
    app.VolumeTag = VolumeTagOf(app.MainForm->sdrVolume->value());
}

void SetVoiceValue(QSlider& slider, QString& tag, QString (*tagOf)(int), int value)
{
    // The slider's change event rebuilds the tag from the slider, so the tag comes last.
    slider.setValue(value);
    tag = tagOf(value);
}

void mnuViewVoice_Click(App& app)
{
    frmMain& f = *app.MainForm;
    const bool show = !f.mnuViewVoice->isChecked();
    const QList<QWidget*> panel{f.Frame1, f.sdrPitch, f.sdrSpeed, f.sdrVolume, f.cmdDefaults};
    for (QWidget* w : panel)
        w->setVisible(show);
    f.mnuViewVoice->setChecked(show);
    // The window's minimum size must follow the panel before the new width can hold.
    f.layout()->activate();
    f.setWidthTwips(show ? frmMain::WidthWithPanel : frmMain::WidthWithoutPanel);
}
