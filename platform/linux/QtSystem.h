#pragma once

#include "platform/System.h"

#include <QLockFile>
#include <memory>

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
    static QString defaultLockFileName();

private:
    QLockFile lock_;
};

class ExitProcess : public Process
{
public:
    [[noreturn]] void End() override;
};

} // namespace platform
