#pragma once

#include <QString>

// The per-user data folder, created when missing: Apps.cfg, Notes.cfg and a character file
// named without a path live there, and the file dialogs start there.
QString PrepareAppPath();

// Copies the character that comes with the program into the data folder when the folder holds
// no character file, so that the first-run dialog shows it at once.
void PlaceBundledCharacter(const QString& appPath, const QString& bundledCharacter);
