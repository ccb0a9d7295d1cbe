#include "core/ReportError.h"

#include "core/App.h"
#include "core/Conversions.h"

using platform::BoxAnswer;
using platform::BoxButtons;
using platform::BoxIcon;
namespace errors = platform::errors;

namespace
{

const QString CrLf = QStringLiteral("\r\n");

QString AgentMissingText()
{
    return QStringLiteral("You didn't install Microsoft Agent. Please goto '") + HomePageUrl +
           QStringLiteral("' ") + CrLf +
           QStringLiteral(
               "and go to the 'Agent Installation' section to install three components:") +
           CrLf + QStringLiteral("1) Install Microsoft Agent Services version 1.5") + CrLf +
           QStringLiteral("2) Install the TruVoice Text-To-Speech Engine") + CrLf +
           QStringLiteral("3) Install the Command and Control Engine") + CrLf +
           QStringLiteral("Please email ") + SupportAddress +
           QStringLiteral(" if you are still having trouble.");
}

QString GeneralErrorText(float Where, const platform::RuntimeError& error)
{
    return error.Description + CrLf + QStringLiteral("Please report the following error to '") +
           SupportAddress + QStringLiteral("' ") + CrLf + QStringLiteral("( Unknown ( ") +
           Conversions::SingleText(Where) + QStringLiteral(" ) ") + QString::number(error.Number) +
           QStringLiteral(", ") + error.Source + QStringLiteral(")");
}

} // namespace

void ReportError(App& app, bool Fatal, float Where, const platform::RuntimeError& error)
{
    const bool silentAtStartUp = Where == 11.0f;
    bool ends = Fatal;
    switch (error.Number) {
    case errors::SoundSystemBusy:
        if (error.Source == platform::AgentSource)
            app.P.dialogs.MsgBox(
                BoxIcon::Warning, BoxButtons::OK, QStringLiteral("Speech Input Error"),
                QStringLiteral("Some other application is using your sound system, this caused an "
                               "error in Agent's Speech Input component. Please close all other "
                               "applications that are using your sound card."));
        break;
    case errors::ElementNotFound:
    case errors::SpeechInputError:
    case errors::ObjectError:
        ends = Fatal && !silentAtStartUp;
        break;
    case errors::AgentNotInstalled:
        app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK,
                             QStringLiteral("Microsoft Agent Not Installed"), AgentMissingText());
        break;
    case errors::FormAlreadyShown:
        ends = false;
        break;
    default:
        app.P.dialogs.MsgBox(BoxIcon::Critical, BoxButtons::OK, QStringLiteral("Unknown Error"),
                             GeneralErrorText(Where, error));
        break;
    }
    if (ends)
        app.P.process.End();
}

void RunSteps(App& app, bool Fatal, float Where, std::initializer_list<std::function<void()>> steps)
{
    for (const auto& step : steps) {
        try {
            step();
        } catch (const platform::RuntimeError& error) {
            ReportError(app, Fatal, Where, error);
        }
    }
}
