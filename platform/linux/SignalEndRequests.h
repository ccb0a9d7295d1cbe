#pragma once

#include "platform/System.h"

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace platform
{

// SIGTERM and SIGHUP reach the event loop through a pipe that the signal handler writes one
// byte to, the only safe thing a handler can do; the desktop session's end arrives as the
// application's commit-data request or its last event before quitting.
class SignalEndRequests : public EndRequests
{
public:
    SignalEndRequests();
    ~SignalEndRequests() override;
    void Watch(std::function<void()> onTerminate, std::function<void()> onSessionEnd) override;

private:
    int pipe_[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
    std::unique_ptr<QObject> sessionReceiver_;
};

} // namespace platform
