#pragma once

#include "platform/System.h"

#include <QStringList>

namespace platform
{

class QtShell : public Shell
{
public:
    void OpenUrl(const QString& url) override;
    void StartCommandLine(const QString& commandLine) override;

    // The program and its arguments: a text that names an existing executable file whole is
    // that file with no arguments; any other text is split as a shell splits it.
    static QStringList splitCommandLine(const QString& commandLine);
};

} // namespace platform
