#pragma once

#include <QByteArrayView>
#include <QString>

// Decodes text in the Windows-1252 code page, the single-byte text of files written on the
// old platform. The five bytes that the code page leaves undefined map to the C1 controls of
// the same value, as that platform's own conversion does.
QString DecodeWindows1252(QByteArrayView bytes);
