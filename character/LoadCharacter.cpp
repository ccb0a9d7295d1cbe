#include "character/LoadCharacter.h"

#include "character/ApplyVoiceDefaults.h"
#include "character/CurrentCharacter.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/frmMain.h"
#include "platform/RuntimeError.h"

#include <QAction>
#include <QPushButton>
#include <cmath>
#include <cstdint>
#include <functional>
#include <vector>

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;

namespace
{

// The character's top left corner must lie this far inside the screen.
constexpr int EdgeMargin = 128;

// What the handler decided after a statement failed.
enum class Recovery { Retry, Leave };

Recovery RecoverFromFailure(App& app, bool FirstLoad, QString& File)
{
    auto& dialogs = app.P.dialogs;
    if (!File.isEmpty()) {
        const BoxAnswer answer = dialogs.MsgBox(
            BoxIcon::Critical, BoxButtons::OKCancel, QStringLiteral("Character Error"),
            QStringLiteral("Cannot load the specified character. Please check the path and make "
                           "sure the file you selected is an ACS file."));
        if (answer == BoxAnswer::Cancel) {
            if (FirstLoad)
                app.P.process.End();
            return Recovery::Leave;
        }
    }
    File = dialogs.OpenFile({QStringLiteral("Agent Character (*.acs) |*.acs"),
                             QStringLiteral("Open Character.."), app.AppPath, QString()});
    if (File.isEmpty() && FirstLoad)
        app.P.process.End();
    return Recovery::Retry;
}

// The stored coordinate, or "0" when it is missing (then stored) or lies beyond the bound.
QString StoredCoordinate(App& app, const QString& name, int boundPixels)
{
    QString value = app.Settings.ReadText(name);
    if (boundPixels < Conversions::Val(value))
        value = QStringLiteral("0");
    if (value.isEmpty()) {
        value = QStringLiteral("0");
        app.Settings.Write(name, value);
    }
    return value;
}

void MoveToStoredPosition(App& app)
{
    const auto& screen = app.P.screen;
    const QString x = StoredCoordinate(app, QStringLiteral("X"),
                                       screen.Width() / screen.TwipsPerPixelX() - EdgeMargin);
    const QString y = StoredCoordinate(app, QStringLiteral("Y"),
                                       screen.Height() / screen.TwipsPerPixelY() - EdgeMargin);
    app.LastRequest =
        CurrentCharacter(app).MoveTo(std::int16_t(std::nearbyint(Conversions::Val(x))),
                                     std::int16_t(std::nearbyint(Conversions::Val(y))));
}

bool SettingIsOn(App& app, const QString& name)
{
    return Conversions::Val(app.Settings.Get(name, QStringLiteral("1"))) == 1;
}

using Steps = std::vector<std::function<void()>>;

// Bringing the file in, up to the voice defaults; a character kept loaded skips these.
Steps LoadingSteps(App& app, const QString& File)
{
    return {
        [&] { app.Agent1->Characters().Load(CharacterId, File); },
        [&] { app.Character = &app.Agent1->Characters().Character(CharacterId); },
        [&] {
            if (!CurrentCharacter(app).HasOtherClients())
                return;
            app.P.dialogs.MsgBox(BoxIcon::Warning, BoxButtons::OK,
                                 QStringLiteral("Character is in use"),
                                 QStringLiteral("This Character is in use by another application. "
                                                "If you get any errors, please close the other "
                                                "application."));
        },
        [&] { MoveToStoredPosition(app); },
        [&] { ApplyVoiceDefaults(app); },
    };
}

// The command list, the stored path and the character options.
Steps OptionSteps(App& app, const QString& File)
{
    return {
        [&] { app.Hooks.SetVoiceCommands(); },
        [&] { app.Settings.Write(QStringLiteral("Character"), File); },
        [&] {
            const bool on = SettingIsOn(app, QStringLiteral("SoundEffects"));
            CurrentCharacter(app).setSoundEffectsOn(on);
        },
        [&] {
            const bool on = SettingIsOn(app, QStringLiteral("IdleAnimations"));
            CurrentCharacter(app).setIdleOn(on);
        },
        [&] {
            if (SettingIsOn(app, QStringLiteral("Show")))
                app.LastRequest = CurrentCharacter(app).Show();
        },
        [&] {
            const bool visible = CurrentCharacter(app).Visible();
            frmMain& f = *app.MainForm;
            f.cmdShow->setText(visible ? QStringLiteral("&Hide") : QStringLiteral("&Show"));
            // A character hidden from the start raises no Hide event to do this.
            f.mnuQuorlTime->setEnabled(visible);
            f.mnuQuorlDate->setEnabled(visible);
        },
    };
}

} // namespace

void LoadCharacter(App& app, bool FirstLoad, QString& File, bool KeepLoaded)
{
    if (!KeepLoaded && !FirstLoad && app.Character) {
        if (app.Character->Visible())
            app.Character->Hide();
        app.Character = nullptr;
        app.Agent1->Characters().Unload(CharacterId);
    }

    Steps steps = KeepLoaded ? Steps{} : LoadingSteps(app, File);
    const Steps options = OptionSteps(app, File);
    steps.insert(steps.end(), options.begin(), options.end());

    // A failed step runs again after the user has been asked, with the file now chosen.
    for (const auto& step : steps) {
        for (;;) {
            try {
                step();
                break;
            } catch (const platform::RuntimeError&) {
                if (KeepLoaded)
                    throw;
                if (RecoverFromFailure(app, FirstLoad, File) == Recovery::Leave)
                    return;
            }
        }
    }
}
