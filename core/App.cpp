#include "core/App.h"

#include "commands/frmShut.h"
#include "core/frmMain.h"

App::App(platform::Platform& platform) : P(platform), Settings(platform.store) {}

App::~App() = default;
