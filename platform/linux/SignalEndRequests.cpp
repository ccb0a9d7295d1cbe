#include "platform/linux/SignalEndRequests.h"

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QSessionManager>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

Q_LOGGING_CATEGORY(lcEnd, "quorl.end", QtWarningMsg)

namespace platform
{

namespace
{

constexpr int WatchedSignals[] = {SIGTERM, SIGHUP};

// The handler's only state: the pipe's writing end.
volatile std::sig_atomic_t signalPipe = -1;

void onSignal(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe, &byte, 1);
    errno = savedErrno;
}

} // namespace

SignalEndRequests::SignalEndRequests() = default;

SignalEndRequests::~SignalEndRequests()
{
    if (pipe_[1] < 0)
        return;
    for (const int signal : WatchedSignals)
        std::signal(signal, SIG_DFL);
    signalPipe = -1;
    notifier_.reset();
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

void SignalEndRequests::Watch(std::function<void()> onTerminate, std::function<void()> onSessionEnd)
{
    if (::pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcEnd) << "no pipe for the termination signals:" << strerror(errno);
        pipe_[0] = pipe_[1] = -1;
    } else {
        signalPipe = pipe_[1];
        notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated,
                         [this, handler = std::move(onTerminate)] {
                             char bytes[16];
                             while (::read(pipe_[0], bytes, sizeof bytes) > 0) {
                             }
                             handler();
                         });
        struct sigaction action = {};
        action.sa_handler = onSignal;
        sigemptyset(&action.sa_mask);
        action.sa_flags = SA_RESTART;
        for (const int signal : WatchedSignals)
            sigaction(signal, &action, nullptr);
    }

    sessionReceiver_ = std::make_unique<QObject>();
    auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (!application)
        return;
    auto ending = std::make_shared<std::function<void()>>(std::move(onSessionEnd));
    QObject::connect(application, &QGuiApplication::commitDataRequest, sessionReceiver_.get(),
                     [ending](QSessionManager&) { (*ending)(); });
    QObject::connect(application, &QCoreApplication::aboutToQuit, sessionReceiver_.get(),
                     [ending] { (*ending)(); });
}

} // namespace platform
