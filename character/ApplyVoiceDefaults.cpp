#include "character/ApplyVoiceDefaults.h"

#include "character/CurrentCharacter.h"
#include "character/VoicePanel.h"
#include "character/VoiceTags.h"
#include "core/App.h"
#include "core/frmMain.h"
#include "platform/RuntimeError.h"

#include <QSlider>
#include <functional>
#include <initializer_list>

namespace
{

void RunPassingErrorsOver(std::initializer_list<std::function<void()>> steps)
{
    for (const auto& step : steps) {
        try {
            step();
        } catch (const platform::RuntimeError&) {
        }
    }
}

} // namespace

void ApplyVoiceDefaults(App& app)
{
    frmMain& f = *app.MainForm;
    RunPassingErrorsOver({
        [&] {
            SetVoiceValue(*f.sdrPitch, app.PitchTag, PitchTagOf, CurrentCharacter(app).Pitch());
        },
        [&] {
            SetVoiceValue(*f.sdrSpeed, app.SpeedTag, SpeedTagOf, CurrentCharacter(app).Speed());
        },
        [&] { app.VolumeTag = VolumeTagOf(f.sdrVolume->maximum()); },
        [&] { f.sdrVolume->setValue(f.sdrVolume->maximum()); },
    });
}
