#include "apps/LoadApps.h"

#include "apps/AppsFile.h"
#include "commands/VoiceCommands.h"
#include "core/App.h"
#include "core/Conversions.h"
#include "core/ReportError.h"

#include <QFileInfo>
#include <memory>

namespace
{

void ShowFileReadError(App& app, const QString& fileName)
{
    app.P.dialogs.MsgBox(platform::BoxIcon::Critical, platform::BoxButtons::OK,
                         QStringLiteral("File Read Error"),
                         QStringLiteral("Please send the following info to ") + SupportAddress +
                             QStringLiteral(" to help with a fix:\r\n") + fileName);
}

// The open file, or nothing when there is nothing to load.
std::unique_ptr<AppsFileReader> OpenAppsFile(App& app, const QString& fileName)
{
    if (!app.Agent1 || !app.Agent1->SpeechInputInstalled())
        return nullptr;
    const QFileInfo info(fileName);
    if (!info.exists() || info.size() == 0)
        return nullptr;
    return std::make_unique<AppsFileReader>(fileName);
}

void AddApplications(App& app, AppsFileReader& reader)
{
    const int n = reader.Count();
    if (n == 0)
        return;
    app.AppPaths.assign(std::size_t(n) + 1, QString());
    for (int i = 1; i <= n; ++i) {
        const AppRecord record = reader.Read(i);
        CharacterCommands(app).Add(Conversions::NumberText(i), record.Title, record.Voice,
                                   record.VoiceActivated != 0, record.ShowInPopup != 0);
        app.AppPaths[std::size_t(i)] = record.Path;
    }
}

} // namespace

void LoadApps(App& app)
{
    app.AppPaths.assign(1, QString());
    const QString fileName = AppsFilePath(app.AppPath);

    std::unique_ptr<AppsFileReader> reader;
    try {
        reader = OpenAppsFile(app, fileName);
    } catch (const platform::RuntimeError& error) {
        ShowFileReadError(app, fileName);
        ReportError(app, false, 10.1f, error);
        return;
    }
    if (!reader)
        return;

    try {
        AddApplications(app, *reader);
    } catch (const platform::RuntimeError& error) {
        ReportError(app, false, 10.2f, error);
    }
}
