#pragma once

#include "platform/Agent.h"

#include <QTest>

namespace agent::runtime::testing
{

// True once the request has run: complete, failed or interrupted.
inline bool isFinished(const platform::Request& request)
{
    const int status = request->Status();
    return status != platform::AgentRequest::Pending &&
           status != platform::AgentRequest::InProgress;
}

inline bool waitFinished(const platform::Request& request, int timeoutMs = 5000)
{
    return QTest::qWaitFor([&request] { return isFinished(request); }, timeoutMs);
}

} // namespace agent::runtime::testing
