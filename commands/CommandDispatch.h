#pragma once

struct App;

namespace platform
{
class RuntimeError;
struct UserInput;
} // namespace platform

// The one place where the character's commands, spoken or picked from its popup menu, turn
// into actions: by the entry's name, the built-in commands, the confirmations and the
// applications.
void Agent1_Command(App& app, const platform::UserInput& UserInput);
// The control's own failures while listening for commands are reported as the dispatch's.
void Agent1_Error(App& app, const platform::RuntimeError& error);
