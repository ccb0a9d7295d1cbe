#include "core/App.h"

#include "core/frmMain.h"

#include <QDialog>

App::App(platform::Platform& platform) : P(platform), Settings(platform.store) {}

App::~App() = default;
