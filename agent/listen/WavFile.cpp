#include "agent/listen/WavFile.h"

#include <QFile>
#include <QtEndian>

namespace agent::listen
{

namespace
{

std::uint32_t le32(const char* p)
{
    return qFromLittleEndian<std::uint32_t>(p);
}
std::uint16_t le16(const char* p)
{
    return qFromLittleEndian<std::uint16_t>(p);
}

} // namespace

std::optional<std::vector<std::int16_t>> readSpeechWav(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (bytes.size() < 12 || !bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return std::nullopt;
    bool formatOk = false;
    qsizetype pos = 12;
    while (pos + 8 <= bytes.size()) {
        const QByteArray id = bytes.mid(pos, 4);
        const qsizetype size = le32(bytes.constData() + pos + 4);
        const qsizetype body = pos + 8;
        if (size > bytes.size() - body)
            return std::nullopt;
        if (id == "fmt " && size >= 16) {
            const char* f = bytes.constData() + body;
            formatOk =
                le16(f) == 1 && le16(f + 2) == 1 && le32(f + 4) == 16000 && le16(f + 14) == 16;
        } else if (id == "data") {
            if (!formatOk)
                return std::nullopt;
            std::vector<std::int16_t> samples(size / 2);
            for (qsizetype i = 0; i < qsizetype(samples.size()); ++i)
                samples[i] = qFromLittleEndian<std::int16_t>(bytes.constData() + body + 2 * i);
            return samples;
        }
        pos = body + size + (size & 1);
    }
    return std::nullopt;
}

} // namespace agent::listen
