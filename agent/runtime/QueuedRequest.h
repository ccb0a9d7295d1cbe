#pragma once

#include "platform/Agent.h"

namespace agent::runtime
{

// The status of one queued character operation, shared with whoever asked for it.
class QueuedRequest : public platform::AgentRequest
{
public:
    int Status() const override { return status_; }
    void setStatus(int status) { status_ = status; }

private:
    int status_ = Pending;
};

} // namespace agent::runtime
