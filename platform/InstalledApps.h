#pragma once

#include <QIcon>
#include <QString>
#include <vector>

namespace platform
{

// One application installed on the desktop, as its menu entry describes it.
struct InstalledApp {
    // The name in the user's language.
    QString Name;
    // The command that starts it, without the codes that stand for files or addresses, in the
    // form Shell::StartCommandLine takes.
    QString CommandLine;
    QIcon Icon;
};

// The desktop's applications that a user may start from a menu, sorted by name: the entries of
// the data folders' "applications" folders, without the hidden ones and those kept out of
// menus. An unreadable entry is left out.
std::vector<InstalledApp> InstalledApplications();

} // namespace platform
