#pragma once

#include <QString>

// The per-user data folder, created when missing: Apps.cfg, Notes.cfg and a character file
// named without a path live there, and the file dialogs start there.
QString PrepareAppPath();
