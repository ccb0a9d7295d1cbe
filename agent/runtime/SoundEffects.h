#pragma once

#include <QByteArray>
#include <QObject>
#include <QTemporaryDir>
#include <vector>

namespace agent::runtime
{

// Plays the character's frame sounds, fire and forget; a sound may outlast its frame.
// Without an audio device nothing is played and nothing waits.
class SoundEffects : public QObject
{
    Q_OBJECT
public:
    explicit SoundEffects(std::vector<QByteArray> sounds, QObject* parent = nullptr);

    void play(int index);

private:
    QString fileFor(int index);

    std::vector<QByteArray> sounds_;
    std::vector<QString> files_;
    QTemporaryDir folder_;
};

} // namespace agent::runtime
