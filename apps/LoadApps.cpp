#include "apps/LoadApps.h"

void LoadApps(App&) {}
