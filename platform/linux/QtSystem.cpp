#include "platform/linux/QtSystem.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <cstdio>
#include <cstdlib>

namespace platform
{

namespace
{

// A twip is 1/1440 inch.
int twipsPerPixel(qreal dotsPerInch)
{
    return qMax(1, qRound(1440.0 / dotsPerInch));
}

QScreen* screen()
{
    return QGuiApplication::primaryScreen();
}

} // namespace

int QtScreen::Width() const
{
    return screen()->size().width() * TwipsPerPixelX();
}
int QtScreen::Height() const
{
    return screen()->size().height() * TwipsPerPixelY();
}
int QtScreen::TwipsPerPixelX() const
{
    return twipsPerPixel(screen()->logicalDotsPerInchX());
}
int QtScreen::TwipsPerPixelY() const
{
    return twipsPerPixel(screen()->logicalDotsPerInchY());
}

QString QtClipboard::Text() const
{
    return QGuiApplication::clipboard()->text();
}

LockFileInstance::LockFileInstance(const QString& lockFileName) : lock_(lockFileName)
{
    lock_.setStaleLockTime(0);
}

QString LockFileInstance::defaultLockFileName()
{
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        folder = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                 QStringLiteral("/Kestrane");
    return folder + QStringLiteral("/quorl.lock");
}

bool LockFileInstance::PreviousInstanceRunning()
{
    if (lock_.isLocked())
        return false;
    QDir().mkpath(QFileInfo(lock_.fileName()).absolutePath());
    return !lock_.tryLock(0) && lock_.error() == QLockFile::LockFailedError;
}

void LockFileInstance::Release()
{
    if (lock_.isLocked())
        lock_.unlock();
}

void ExitProcess::AtEnd(std::function<void()> step)
{
    atEnd_.push_back(std::move(step));
}

void ExitProcess::End()
{
    for (const auto& step : atEnd_)
        step();
    std::fflush(nullptr);
    std::_Exit(0);
}

} // namespace platform
