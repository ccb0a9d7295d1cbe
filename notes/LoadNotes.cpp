#include "notes/LoadNotes.h"

void LoadNotes(App&) {}
