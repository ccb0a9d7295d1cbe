#include "apps/InstalledAppPicker.h"

#include "apps/frmApp.h"
#include "fakes/LoadedProgram.h"
#include "platform/InstalledApps.h"

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace
{

using namespace Qt::Literals::StringLiterals;

const QString LongName = u"Long: Editor-Pro (2026 Edition) for everything you wanted"_s;

// An XDG data folder with entries of every kind the picker must tell apart.
struct Fixture {
    Fixture()
    {
        write("calc", "Name=Calculator\nName[de]=Rechner\nExec=true\nIcon=accessories-calculator");
        write("secret", "Name=Secret\nNoDisplay=true\nExec=true");
        write("gone", "Name=Gone\nHidden=true\nExec=true");
        write("tools/viewer", "# a comment\nName=Viewer\nExec=cat --number %U\nTerminal=true\n"
                              "TryExec=cat\n[Desktop Action new]\nName=New\nExec=false");
        write("echo", R"(Name=Quoted Echo
Exec="/bin/echo" "two words" "say \\"hi\\"" 100%% %f)");
        write("long", "Name=" + LongName.toUtf8() + "\nExec=true --long");
        // Where the desktop's entries are looked for, and the language of their names.
        qputenv("XDG_DATA_DIRS", data.path().toLocal8Bit());
        qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
        qputenv("LANGUAGE", "de");
    }

    void write(const char* name, const QByteArray& keys)
    {
        const QString path =
            data.filePath("applications/"_L1 + QLatin1String(name) + ".desktop"_L1);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys + '\n');
    }

    QTemporaryDir data;
    QTemporaryDir home;
};

TEST(InstalledAppsTest, ListsTheShownEntriesWithLocalNamesAndPlainCommands)
{
    Fixture fixture;
    std::vector<std::pair<QString, QStringList>> listed;
    for (const platform::InstalledApp& app : platform::InstalledApplications())
        listed.emplace_back(app.Name, QProcess::splitCommand(app.CommandLine));
    const std::vector<std::pair<QString, QStringList>> expected{
        {LongName, {u"true"_s, u"--long"_s}},
        {u"Quoted Echo"_s, {u"/bin/echo"_s, u"two words"_s, u"say \"hi\""_s, u"100%"_s}},
        {u"Rechner"_s, {u"true"_s}},
        {u"Viewer"_s, {u"cat"_s, u"--number"_s}},
    };
    EXPECT_EQ(listed, expected);
}

TEST(InstalledAppPickerTest, APickFillsTheBoxesOfTheApplicationWindow)
{
    Fixture fixture;
    fakes::LoadedProgram program;
    QTemporaryDir appPath;
    program.app.AppPath = appPath.path();
    frmApp form(program.app);
    ASSERT_TRUE(form.Form_Load());

    const struct {
        QString typed;
        std::vector<Qt::Key> keys;
        QString name, voice, path;
    } picks[] = {
        {u"rech"_s, {Qt::Key_Return}, u"Rechner"_s, u"Rechner"_s, u"true"_s},
        {u"VIEW"_s, {Qt::Key_Return}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
        {u"calc"_s, {Qt::Key_Escape}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
        {u"nothing like it"_s, {Qt::Key_Return}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
        {u"o"_s,
         {Qt::Key_Down, Qt::Key_Return},
         u"Quoted Echo"_s,
         u"Rechner"_s,
         uR"(/bin/echo "two words" "say """hi"""" 100%)"_s},
        {QString(),
         {Qt::Key_Return},
         LongName.left(50),
         u"Long Editor Pro 2026 Edition for everything you"_s,
         u"true --long"_s},
    };
    for (const auto& pick : picks) {
        if (pick.name == LongName.left(50))
            form.txtVoice->clear();
        program.fp.onModal = [&](QDialog& picker) {
            picker.show();
            auto* search = dynamic_cast<InstalledAppPicker&>(picker).txtSearch;
            QTest::keyClicks(search, pick.typed);
            for (Qt::Key key : pick.keys)
                QTest::keyClick(search, key);
        };
        form.mnuBrowseInstalled->trigger();
        EXPECT_EQ(form.txtName->text(), pick.name) << pick.typed.toStdString();
        EXPECT_EQ(form.txtVoice->text(), pick.voice) << pick.typed.toStdString();
        EXPECT_EQ(form.txtPath->text(), pick.path) << pick.typed.toStdString();
    }
    form.Form_Unload();
}

} // namespace
