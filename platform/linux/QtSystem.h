#pragma once

#include "platform/System.h"

#include <QLockFile>
#include <functional>
#include <vector>

namespace platform
{

class SystemClock : public Clock
{
public:
    QDateTime Now() const override { return QDateTime::currentDateTime(); }
};

class QtScreen : public Screen
{
public:
    int Width() const override;
    int Height() const override;
    int TwipsPerPixelX() const override;
    int TwipsPerPixelY() const override;
};

class QtClipboard : public Clipboard
{
public:
    QString Text() const override;
};

// The instance lock is a file in the user's runtime folder; a lock left by a program that
// died is taken over.
class LockFileInstance : public Instance
{
public:
    explicit LockFileInstance(const QString& lockFileName = defaultLockFileName());
    bool PreviousInstanceRunning() override;
    // Removes the lock file if this instance holds it.
    void Release();
    // In $XDG_RUNTIME_DIR, or without one in the user's cache folder: never in the shared
    // temporary folder, where a lock would outlive the session.
    static QString defaultLockFileName();

private:
    QLockFile lock_;
};

// Ends at once; what was registered with AtEnd runs first, so that the end leaves no file of
// the program behind.
class ExitProcess : public Process
{
public:
    void AtEnd(std::function<void()> step);
    [[noreturn]] void End() override;

private:
    std::vector<std::function<void()>> atEnd_;
};

} // namespace platform
