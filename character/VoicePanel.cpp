#include "character/ApplyVoiceDefaults.h"
#include "character/VoiceTags.h"
#include "core/App.h"
#include "core/frmMain.h"

#include <QAction>
#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QSlider>

namespace
{
// The narrow window ends before the voice panel, which stands to the right.
constexpr int WidthWithoutPanel = 4800;
constexpr int WidthWithPanel = 8310;
} // namespace

void frmMain::cmdDefaults_Click()
{
    ApplyVoiceDefaults(app);
}

void frmMain::sdrPitch_Change()
{
    app.PitchTag = PitchTagOf(sdrPitch->value());
}

void frmMain::sdrSpeed_Change()
{
    app.SpeedTag = SpeedTagOf(sdrSpeed->value());
}

void frmMain::sdrVolume_Change()
{
    app.VolumeTag = VolumeTagOf(sdrVolume->value());
}

void frmMain::mnuViewVoice_Click()
{
    const bool show = !mnuViewVoice->isChecked();
    const QList<QWidget*> panel{Frame1, sdrPitch, sdrSpeed, sdrVolume, cmdDefaults};
    for (QWidget* w : panel)
        w->setVisible(show);
    mnuViewVoice->setChecked(show);
    // The window's minimum size must follow the panel before the new width can hold.
    layout()->activate();
    setWidthTwips(show ? WidthWithPanel : WidthWithoutPanel);
}
