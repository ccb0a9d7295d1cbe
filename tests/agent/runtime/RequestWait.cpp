#include "RequestWait.h"

#include <QTest>

namespace agent::runtime::testing
{

bool isFinished(const platform::Request& request)
{
    const int status = request->Status();
    return status != platform::AgentRequest::Pending &&
           status != platform::AgentRequest::InProgress;
}

bool waitFinished(const platform::Request& request, int timeoutMs)
{
    return QTest::qWaitFor([&request] { return isFinished(request); }, timeoutMs);
}

} // namespace agent::runtime::testing
