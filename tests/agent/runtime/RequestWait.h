#pragma once

#include "platform/Agent.h"

namespace agent::runtime::testing
{

// True once the request has run: complete, failed or interrupted.
bool isFinished(const platform::Request& request);

// Lets the event loop run until the request has run; false when it has not after timeoutMs.
bool waitFinished(const platform::Request& request, int timeoutMs = 5000);

} // namespace agent::runtime::testing
