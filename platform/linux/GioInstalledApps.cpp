#include "platform/InstalledApps.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <algorithm>
#include <gio/gdesktopappinfo.h>
#include <memory>
#include <set>

Q_LOGGING_CATEGORY(lcInstalledApps, "quorl.installedapps", QtWarningMsg)

namespace platform
{

namespace
{

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using DesktopAppInfo = std::unique_ptr<GDesktopAppInfo, GObjectUnref>;

QString fromUtf8(const char* text)
{
    return QString::fromUtf8(text ? text : "");
}

// An argument as QProcess::splitCommand reads it back: quoted when it holds blanks or quotes,
// with a quote inside written as three.
QString quoted(const QString& argument)
{
    const bool plain = !argument.isEmpty() &&
                       std::none_of(argument.begin(), argument.end(),
                                    [](QChar c) { return c.isSpace() || c == QLatin1Char('"'); });
    if (plain)
        return argument;
    return QLatin1Char('"') +
           QString(argument).replace(QStringLiteral("\""), QStringLiteral("\"\"\"")) +
           QLatin1Char('"');
}

// The argument with its field codes dropped and "%%" made "%".
QString withoutFieldCodes(const QString& argument)
{
    QString result;
    for (int i = 0; i < argument.size(); ++i) {
        if (argument[i] != QLatin1Char('%') || i + 1 == argument.size()) {
            result += argument[i];
            continue;
        }
        ++i;
        if (argument[i] == QLatin1Char('%'))
            result += QLatin1Char('%');
    }
    return result;
}

// The Exec line split as the desktop's launchers split it, the field codes removed.
QString commandLine(const char* exec)
{
    gint argc = 0;
    gchar** argv = nullptr;
    if (!exec || !g_shell_parse_argv(exec, &argc, &argv, nullptr))
        return {};
    QStringList arguments;
    for (gint i = 0; i < argc; ++i) {
        const QString argument = QString::fromUtf8(argv[i]);
        const QString kept = withoutFieldCodes(argument);
        if (kept.isEmpty() && !argument.isEmpty())
            continue;
        arguments << quoted(kept);
    }
    g_strfreev(argv);
    return arguments.join(QLatin1Char(' '));
}

QIcon iconOf(GAppInfo* info)
{
    GIcon* icon = g_app_info_get_icon(info);
    if (G_IS_THEMED_ICON(icon)) {
        for (const gchar* const* name = g_themed_icon_get_names(G_THEMED_ICON(icon)); *name;
             ++name) {
            if (QIcon::hasThemeIcon(QString::fromUtf8(*name)))
                return QIcon::fromTheme(QString::fromUtf8(*name));
        }
    } else if (G_IS_FILE_ICON(icon)) {
        std::unique_ptr<char, decltype(&g_free)> path(
            g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))), g_free);
        if (path)
            return QIcon(QString::fromUtf8(path.get()));
    }
    return {};
}

// The entries of one "applications" folder, by desktop file ID (sub-folders joined by '-').
void collect(const QString& folder, std::set<QString>& seen, std::vector<InstalledApp>& apps)
{
    const QDir root(folder);
    QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                       QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString id = root.relativeFilePath(file).replace(QLatin1Char('/'), QLatin1Char('-'));
        // The first folder that has an ID decides about it, also when it hides the entry.
        if (!seen.insert(id).second)
            continue;
        const DesktopAppInfo info(
            g_desktop_app_info_new_from_filename(QFile::encodeName(file).constData()));
        if (!info) {
            qCDebug(lcInstalledApps) << "left out, not an application that can start:" << file;
            continue;
        }
        GAppInfo* app = G_APP_INFO(info.get());
        if (g_desktop_app_info_get_is_hidden(info.get()) || !g_app_info_should_show(app))
            continue;
        const QString command = commandLine(g_app_info_get_commandline(app));
        if (command.isEmpty())
            continue;
        apps.push_back({fromUtf8(g_app_info_get_name(app)), command, iconOf(app)});
    }
}

} // namespace

std::vector<InstalledApp> InstalledApplications()
{
    std::vector<InstalledApp> apps;
    std::set<QString> seen;
    for (const QString& data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        collect(data + QStringLiteral("/applications"), seen, apps);
    std::sort(apps.begin(), apps.end(), [](const InstalledApp& a, const InstalledApp& b) {
        return QString::localeAwareCompare(a.Name, b.Name) < 0;
    });
    return apps;
}

} // namespace platform
