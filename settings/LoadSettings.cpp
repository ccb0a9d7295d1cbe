#include "settings/LoadSettings.h"

void LoadSettings(App&) {}
