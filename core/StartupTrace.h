#pragma once

#include <QElapsedTimer>
#include <QLoggingCategory>

// Where the start-up time goes. With QT_LOGGING_RULES="quorl.startup.debug=true" each step
// prints the milliseconds since the first step and the monotonic clock's reading, which a
// tool that started the program can compare with its own.
inline const QLoggingCategory& lcStartup()
{
    static const QLoggingCategory category("quorl.startup", QtWarningMsg);
    return category;
}

inline void TraceStartup(const char* step)
{
    static const QElapsedTimer first = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    QElapsedTimer now;
    now.start();
    qCDebug(lcStartup, "%s: %.1f ms (clock %lld ms)", step, first.nsecsElapsed() / 1e6,
            static_cast<long long>(now.msecsSinceReference()));
}
