#include "apps/InstalledAppPicker.h"

#include "apps/frmApp.h"
#include "fakes/LoadedProgram.h"
#include "platform/InstalledApps.h"

#include <QAction>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <gtest/gtest.h>

namespace
{

// Sets environment variables for one test and puts the old values back.
class Environment
{
public:
    Environment(std::initializer_list<std::pair<const char*, QString>> values)
    {
        for (const auto& [name, value] : values) {
            old_.emplace_back(name, qgetenv(name), qEnvironmentVariableIsSet(name));
            if (value.isNull())
                qunsetenv(name);
            else
                qputenv(name, value.toLocal8Bit());
        }
    }
    ~Environment()
    {
        for (const auto& [name, value, set] : old_) {
            if (set)
                qputenv(name, value);
            else
                qunsetenv(name);
        }
    }

private:
    std::vector<std::tuple<const char*, QByteArray, bool>> old_;
};

const QString LongName =
    QStringLiteral("Long: Editor-Pro (2026 Edition) for everything you wanted");

// An XDG data folder with desktop entries of every kind the picker must tell apart.
class Fixture
{
public:
    Fixture()
    {
        write("calc.desktop", "Name=Calculator\nName[de]=Rechner\nExec=true\n"
                              "Icon=accessories-calculator\n");
        write("secret.desktop", "Name=Secret\nNoDisplay=true\nExec=true\n");
        write("gone.desktop", "Name=Gone\nHidden=true\nExec=true\n");
        write("tools/viewer.desktop", "Name=Viewer\nExec=cat --number %U\n");
        write(
            "echo.desktop",
            "Name=Quoted Echo\nExec=\"/bin/echo\" \"two words\" \"say \\\\\"hi\\\\\"\" 100%% %f\n");
        write("long.desktop", "Name=" + LongName.toUtf8() + "\nExec=true --long\n");
    }

    QTemporaryDir data;
    QTemporaryDir home;
    Environment environment{{"XDG_DATA_DIRS", data.path()},
                            {"XDG_DATA_HOME", home.path()},
                            {"LANGUAGE", QStringLiteral("de")}};

private:
    void write(const QString& name, const QByteArray& keys)
    {
        const QString path = data.path() + QStringLiteral("/applications/") + name;
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys);
    }
};

TEST(InstalledAppsTest, ListsTheShownEntriesWithLocalNamesAndPlainCommands)
{
    Fixture fixture;
    std::vector<std::pair<QString, QStringList>> listed;
    for (const platform::InstalledApp& app : platform::InstalledApplications())
        listed.emplace_back(app.Name, QProcess::splitCommand(app.CommandLine));
    const std::vector<std::pair<QString, QStringList>> expected{
        {LongName, {QStringLiteral("true"), QStringLiteral("--long")}},
        {QStringLiteral("Quoted Echo"),
         {QStringLiteral("/bin/echo"), QStringLiteral("two words"), QStringLiteral("say \"hi\""),
          QStringLiteral("100%")}},
        {QStringLiteral("Rechner"), {QStringLiteral("true")}},
        {QStringLiteral("Viewer"), {QStringLiteral("cat"), QStringLiteral("--number")}},
    };
    EXPECT_EQ(listed, expected);
}

// What a plain reading of the entries finds: shown applications whose program exists.
QStringList scannedNames(const QString& folder)
{
    QStringList names;
    QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
            continue;
        QMap<QString, QString> keys;
        QTextStream in(&file);
        bool inEntry = false;
        while (!in.atEnd()) {
            const QString line = in.readLine().trimmed();
            if (line.startsWith(QLatin1Char('[')))
                inEntry = line == QStringLiteral("[Desktop Entry]");
            else if (inEntry && line.contains(QLatin1Char('=')))
                keys.insert(line.section(QLatin1Char('='), 0, 0).trimmed(),
                            line.section(QLatin1Char('='), 1).trimmed());
        }
        const QString program = keys.value(QStringLiteral("Exec")).section(QLatin1Char(' '), 0, 0);
        const QString tryExec = keys.value(QStringLiteral("TryExec"));
        if (keys.value(QStringLiteral("Type")) == QStringLiteral("Application") &&
            keys.value(QStringLiteral("NoDisplay")) != QStringLiteral("true") &&
            keys.value(QStringLiteral("Hidden")) != QStringLiteral("true") &&
            !keys.contains(QStringLiteral("OnlyShowIn")) &&
            !keys.contains(QStringLiteral("NotShowIn")) &&
            !QStandardPaths::findExecutable(program).isEmpty() &&
            (tryExec.isEmpty() || !QStandardPaths::findExecutable(tryExec).isEmpty()))
            names << keys.value(QStringLiteral("Name"));
    }
    return names;
}

TEST(InstalledAppsTest, ListsAtLeastWhatAPlainScanOfThisMachineFinds)
{
    QTemporaryDir home;
    Environment environment{{"XDG_DATA_DIRS", QStringLiteral("/usr/share")},
                            {"XDG_DATA_HOME", home.path()},
                            {"LANGUAGE", QStringLiteral("C")}};
    const QStringList scanned = scannedNames(QStringLiteral("/usr/share/applications"));
    if (scanned.isEmpty())
        GTEST_SKIP() << "this machine has no desktop entries to compare with";
    QStringList listed;
    for (const platform::InstalledApp& app : platform::InstalledApplications())
        listed << app.Name;
    for (const QString& name : scanned)
        EXPECT_TRUE(listed.contains(name)) << name.toStdString();
}

TEST(InstalledAppPickerTest, APickFillsTheBoxesOfTheApplicationWindow)
{
    Fixture fixture;
    fakes::LoadedProgram program;
    QTemporaryDir appPath;
    program.app.AppPath = appPath.path();
    frmApp form(program.app);
    ASSERT_TRUE(form.Form_Load());

    struct Pick {
        const char* typed;
        bool accept;
        QString name, voice, path;
    } picks[] = {
        {"rech", true, QStringLiteral("Rechner"), QStringLiteral("Rechner"),
         QStringLiteral("true")},
        {"VIEW", true, QStringLiteral("Viewer"), QStringLiteral("Rechner"),
         QStringLiteral("cat --number")},
        {"echo", false, QStringLiteral("Viewer"), QStringLiteral("Rechner"),
         QStringLiteral("cat --number")},
        {"", true, LongName.left(50),
         QStringLiteral("Long Editor Pro 2026 Edition for everything you"),
         QStringLiteral("true --long")},
    };
    for (const Pick& pick : picks) {
        if (pick.voice.startsWith(QLatin1String("Long")))
            form.txtVoice->clear();
        program.fp.onModal = [&](QDialog& dialog) {
            auto& picker = dynamic_cast<InstalledAppPicker&>(dialog);
            picker.show();
            QTest::keyClicks(picker.txtSearch, QString::fromLatin1(pick.typed));
            QTest::keyClick(picker.txtSearch, pick.accept ? Qt::Key_Return : Qt::Key_Escape);
        };
        form.mnuBrowseInstalled->trigger();
        EXPECT_EQ(form.txtName->text(), pick.name) << pick.typed;
        EXPECT_EQ(form.txtVoice->text(), pick.voice) << pick.typed;
        EXPECT_EQ(form.txtPath->text(), pick.path) << pick.typed;
    }
    form.Form_Unload();
}

TEST(InstalledAppPickerTest, TypingNarrowsTheListAndArrowsChooseInIt)
{
    InstalledAppPicker picker({{QStringLiteral("Alpha"), QStringLiteral("alpha"), QIcon()},
                               {QStringLiteral("Beta"), QStringLiteral("beta --x"), QIcon()},
                               {QStringLiteral("Alphabet"), QStringLiteral("abc"), QIcon()}},
                              nullptr);
    picker.show();
    QTest::keyClicks(picker.txtSearch, QStringLiteral("alp"));
    EXPECT_TRUE(picker.lstApps->item(1)->isHidden());
    EXPECT_EQ(picker.Picked()->Name, QStringLiteral("Alpha"));
    QTest::keyClick(picker.txtSearch, Qt::Key_Down);
    EXPECT_EQ(picker.Picked()->Name, QStringLiteral("Alphabet"));
    QTest::keyClicks(picker.txtSearch, QStringLiteral("zzz"));
    EXPECT_EQ(picker.Picked(), nullptr);
    EXPECT_FALSE(picker.cmdOK->isEnabled());
}

} // namespace
