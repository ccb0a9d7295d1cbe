#pragma once

#include <QString>
#include <functional>

class QIODevice;

// Replaces fileName with what write puts into the device, or leaves the old file whole: the
// bytes go to a temporary file beside it, which is flushed and renamed over the old one only
// when write has returned. An exception from write, or a failing write, discards the
// temporary file. Throws platform::RuntimeError when the file cannot be written.
void ReplaceFile(const QString& fileName, const std::function<void(QIODevice&)>& write);
