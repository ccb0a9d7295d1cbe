#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

namespace platform
{

class Clock
{
public:
    virtual ~Clock() = default;
    virtual QDateTime Now() const = 0;
};

// Sizes in twips, the layout unit of the program's windows.
class Screen
{
public:
    virtual ~Screen() = default;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual int TwipsPerPixelX() const = 0;
    virtual int TwipsPerPixelY() const = 0;
};

class Clipboard
{
public:
    virtual ~Clipboard() = default;
    // Plain text; empty when the clipboard holds none.
    virtual QString Text() const = 0;
};

class Shell
{
public:
    virtual ~Shell() = default;
    // Opens a web page in the user's browser; a failure shows nothing.
    virtual void OpenUrl(const QString& url) = 0;
    // Starts a program from a command line, detached. Throws RuntimeError when it cannot start.
    virtual void StartCommandLine(const QString& commandLine) = 0;
};

// Shutting the machine down (flags 1) or restarting it (flags 2). The result is not reported.
class Power
{
public:
    virtual ~Power() = default;
    virtual void ExitWindowsEx(unsigned flags, unsigned reserved) = 0;
};

// Whether another instance of the program runs for this user. The first caller holds the
// instance lock for the rest of its life.
class Instance
{
public:
    virtual ~Instance() = default;
    virtual bool PreviousInstanceRunning() = 0;
};

// The end of the program at once: no unload events, nothing saved.
class Process
{
public:
    virtual ~Process() = default;
    [[noreturn]] virtual void End() = 0;
};

// Requests from outside to end the program: the system's request to terminate (what a task
// manager, `kill` or the service manager sends) and the end of the desktop session. Each
// handler runs on the program's thread, from the event loop.
class EndRequests
{
public:
    virtual ~EndRequests() = default;
    virtual void Watch(std::function<void()> onTerminate, std::function<void()> onSessionEnd) = 0;
};

} // namespace platform
