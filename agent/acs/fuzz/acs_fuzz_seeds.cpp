#include "SyntheticCharacter.h"
#include "agent/acs/AcsFile.h"

#include <QDir>
#include <QFile>
#include <cstdio>

using namespace agent::acs;

// Usage: acs_fuzz_seeds <folder>. Writes the synthetic character with and without its voice
// and balloon blocks, with compressed and raw images.
int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s <corpus folder>\n", argv[0]);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    folder.mkpath(QStringLiteral("."));
    int written = 0;
    for (bool voice : {false, true})
        for (bool balloon : {false, true})
            for (bool compressed : {false, true}) {
                const QByteArray file =
                    writeAcs(testing::syntheticCharacter({voice, balloon}), {compressed});
                QFile out(folder.filePath(QStringLiteral("seed%1.acs").arg(written++)));
                if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size())
                    return 1;
            }
    return 0;
}
