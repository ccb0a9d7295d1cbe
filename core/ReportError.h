#pragma once

#include "platform/RuntimeError.h"

#include <functional>
#include <initializer_list>

struct App;

// The one error reporter: shows the box that fits the error, passes some errors over in
// silence, and ends the program at once when the error is fatal at that place.
void ReportError(App& app, bool Fatal, float Where, const platform::RuntimeError& error);

// Runs each step in turn; a step that fails is reported and the next step runs, as a routine
// does whose handler goes on with the next statement.
void RunSteps(App& app, bool Fatal, float Where,
              std::initializer_list<std::function<void()>> steps);
