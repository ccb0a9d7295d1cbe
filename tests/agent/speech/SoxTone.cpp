#include "SoxTone.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace speechtest
{

QByteArray soxTone(const QTemporaryDir& folder, const QString& name, int rate, double hz,
                   const QStringList& encoding, int channels)
{
    const QString plain = folder.filePath(name + u"-in.wav"_qs);
    const QString coded = folder.filePath(name + u".wav"_qs);
    const QStringList steps[] = {
        {u"-n"_qs, u"-r"_qs, QString::number(rate), u"-c"_qs, QString::number(channels), u"-b"_qs,
         u"16"_qs, plain, u"synth"_qs, u"0.5"_qs, u"sine"_qs, QString::number(hz), u"vol"_qs,
         u"0.5"_qs},
        QStringList{plain} + encoding + QStringList{coded},
    };
    for (const QStringList& arguments : steps) {
        QProcess sox;
        sox.start(u"sox"_qs, arguments);
        if (!sox.waitForFinished(10000) || sox.exitStatus() != QProcess::NormalExit ||
            sox.exitCode() != 0)
            return {};
    }
    QFile file(coded);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace speechtest
