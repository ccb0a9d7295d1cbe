#include "clock/Greet.h"

void Greet(App&) {}
