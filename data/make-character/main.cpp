// make-character: draws the bundled character and writes it as a character file, together
// with the program icon, and on request contact sheets of every frame.

#include "CharacterAssembly.h"
#include "ContactSheet.h"
#include "IconPainter.h"
#include "PartLibrary.h"
#include "agent/acs/AcsFile.h"

#include <QCommandLineParser>
#include <QGuiApplication>
#include <QSaveFile>
#include <cstdio>
#include <exception>

namespace
{

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool saveImage(const QImage& image, const QString& path)
{
    if (image.save(path, "PNG"))
        return true;
    std::fprintf(stderr, "make-character: cannot write %s\n", qPrintable(path));
    return false;
}

int run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Draws the bundled character."));
    parser.addHelpOption();
    const QCommandLineOption acsOption(
        QStringLiteral("acs"), QStringLiteral("Write the character file."), QStringLiteral("file"));
    const QCommandLineOption iconOption(
        QStringLiteral("icon"), QStringLiteral("Write the program icon, e.g. 256:quorl.png."),
        QStringLiteral("size:file"));
    const QCommandLineOption sheetOption(
        QStringLiteral("sheet"),
        QStringLiteral("Write contact sheets <prefix>-light.png and <prefix>-dark.png."),
        QStringLiteral("prefix"));
    parser.addOptions({acsOption, iconOption, sheetOption});
    parser.process(arguments);

    const lumo::PartLibrary parts = lumo::drawParts();
    const agent::acs::CharacterData character = lumo::assembleCharacter(parts);

    if (parser.isSet(acsOption)) {
        const QString path = parser.value(acsOption);
        if (!writeFile(path, agent::acs::writeAcs(character))) {
            std::fprintf(stderr, "make-character: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    for (const QString& icon : parser.values(iconOption)) {
        const qsizetype colon = icon.indexOf(QLatin1Char(':'));
        bool numeric = false;
        const int size = icon.left(colon).toInt(&numeric);
        if (colon < 0 || !numeric || size < 16) {
            std::fprintf(stderr, "make-character: bad icon argument %s\n", qPrintable(icon));
            return 2;
        }
        if (!saveImage(lumo::paintIcon(parts, size), icon.mid(colon + 1)))
            return 1;
    }
    if (parser.isSet(sheetOption)) {
        const QString prefix = parser.value(sheetOption);
        if (!saveImage(lumo::contactSheet(character, QColor(0xf2, 0xf2, 0xf2)),
                       prefix + QStringLiteral("-light.png")) ||
            !saveImage(lumo::contactSheet(character, QColor(0x26, 0x29, 0x2e)),
                       prefix + QStringLiteral("-dark.png")))
            return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // Fonts for the sheet captions need a GUI application, but never a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    try {
        return run(app.arguments());
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-character: %s\n", error.what());
        return 1;
    }
}
