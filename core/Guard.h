#pragma once

#include <functional>

// Runs an event routine so that no exception reaches Qt's event loop: an error that no
// handler of the routine caught is written to the log and the program goes on.
void RunGuarded(const char* routine, const std::function<void()>& body);

// A slot that runs body guarded, for connect().
inline auto Guarded(const char* routine, std::function<void()> body)
{
    return [routine, body = std::move(body)] { RunGuarded(routine, body); };
}
