#pragma once

#include <QByteArray>
#include <QStringList>

class QTemporaryDir;

namespace speechtest
{

// A half-second sine at `hz` made with sox in `folder`: 16-bit PCM at `rate` with `channels`,
// then converted with sox's `encoding` options (e.g. "-e ms-adpcm"), as a character stores
// its sounds. Empty when sox cannot make it.
QByteArray soxTone(const QTemporaryDir& folder, const QString& name, int rate, double hz,
                   const QStringList& encoding, int channels = 1);

} // namespace speechtest
