#include "agent/runtime/SoundEffects.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace agent::runtime
{

SoundEffects::SoundEffects(std::vector<QByteArray> sounds, QObject* parent)
    : QObject(parent), sounds_(std::move(sounds)), files_(sounds_.size())
{
}

void SoundEffects::play(int index)
{
    if (index < 0 || index >= static_cast<int>(sounds_.size()) ||
        QMediaDevices::audioOutputs().isEmpty())
        return;
    const QString file = fileFor(index);
    if (file.isEmpty())
        return;
    auto* effect = new QSoundEffect(this);
    const auto release = [effect] {
        if (!effect->isPlaying() && effect->status() != QSoundEffect::Loading)
            effect->deleteLater();
    };
    connect(effect, &QSoundEffect::playingChanged, effect, release);
    connect(effect, &QSoundEffect::statusChanged, effect, [effect, release] {
        if (effect->status() == QSoundEffect::Error)
            release();
    });
    effect->setSource(QUrl::fromLocalFile(file));
    effect->play();
}

// QSoundEffect plays only from a URL, so each sound is written out once.
QString SoundEffects::fileFor(int index)
{
    QString& file = files_[index];
    if (!file.isEmpty() || !folder_.isValid())
        return file;
    const QString path = folder_.filePath(QStringLiteral("sound%1.wav").arg(index));
    QFile out(path);
    if (out.open(QIODevice::WriteOnly) && out.write(sounds_[index]) == sounds_[index].size())
        file = path;
    return file;
}

} // namespace agent::runtime
