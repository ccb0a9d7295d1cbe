#include "apps/frmApp.h"

#include "apps/AppsFile.h"
#include "apps/InstalledAppPicker.h"
#include "fakes/Accessibility.h"
#include "fakes/LoadedProgram.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

using namespace Qt::Literals::StringLiterals;
using platform::BoxAnswer;

QStringList lines(const QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

void type(QLineEdit* box, const QString& text)
{
    box->clear();
    QTest::keyClicks(box, text);
}

// Near the left edge, where a check box's mark is.
void click(QAbstractButton* button)
{
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
}

void add(frmApp& f, const QString& name, const QString& voice, const QString& path)
{
    type(f.txtName, name);
    type(f.txtVoice, voice);
    type(f.txtPath, path);
    click(f.cmdAdd);
}

const QString LongName = u"Long: Editor-Pro (2026 Edition) for everything you wanted"_s;

// An XDG data folder with entries of every kind the picker must tell apart.
struct DesktopEntries {
    DesktopEntries()
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

struct frmAppTest : ::testing::Test {
    frmAppTest()
    {
        program.app.AppPath = dir.path();
        program.fp.onModal = [this](QDialog& dialog) {
            dialog.show();
            if (auto* picker = dynamic_cast<InstalledAppPicker*>(&dialog))
                onPicker(*picker);
            else
                onWindow(dynamic_cast<frmApp&>(dialog));
        };
    }

    // Opens the window from the main menu; steps act on it while it is up.
    void open(std::function<void(frmApp&)> steps)
    {
        onWindow = std::move(steps);
        program.form().mnuQuorlApp->trigger();
    }

    // Apps.cfg with these titles, each with the voice text "say <title>".
    void keep(const QStringList& titles)
    {
        open([&](frmApp& f) {
            for (const QString& title : titles)
                add(f, title, "say "_L1 + title, "/bin/"_L1 + title);
            click(f.cmdClose);
        });
        program.fp.agent->calls.clear();
    }

    QByteArray fileBytes() const
    {
        QFile file(file_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The commands added for applications, named " 1", " 2"...
    QStringList appCommands() const
    {
        return program.fp.agent->calls.filter(QRegularExpression(u"^Commands\\.Add\\( \\d"_s));
    }

    fakes::LoadedProgram program;
    QTemporaryDir dir;
    QString file_ = AppsFilePath(dir.path());
    std::function<void(frmApp&)> onWindow;
    std::function<void(InstalledAppPicker&)> onPicker;
};

// An entry with both boxes ticked is app_setup.sh's.
TEST_F(frmAppTest, AddedAppsReachTheFileAndTheCommandsAndComeBack)
{
    open([&](frmApp& f) {
        // With no file nothing is selected: these stay enabled and do nothing.
        for (QPushButton* b : {f.cmdChange, f.cmdDel, f.cmdUp, f.cmdDown}) {
            EXPECT_TRUE(b->isEnabled());
            click(b);
        }
        EXPECT_EQ(f.List1->count(), 0);
        EXPECT_TRUE(program.fp.dialogs.boxes.empty());

        click(f.chkVisible);
        add(f, u"Mail"_s, u"Read my mail"_s, u"mutt"_s);
        click(f.chkVisible);
        click(f.chkVoice);
        add(f, u"Music"_s, u"Play music"_s, u"player"_s);
        click(f.cmdClose);
    });

    EXPECT_EQ(ReadAppsFile(file_),
              (std::vector<AppRecord>{{"Mail", "Read my mail", "mutt", 0, 1},
                                      {"Music", "Play music", "player", 1, 0}}));
    EXPECT_EQ(appCommands(), QStringList({u"Commands.Add( 1,Mail,Read my mail,1,0)"_s,
                                          u"Commands.Add( 2,Music,Play music,0,1)"_s}));
    EXPECT_TRUE(program.character().Commands().Visible());
    EXPECT_EQ(program.app.ModalOpen, 0);

    // A close rewrites the file, here without the half record behind the two.
    const QByteArray kept = fileBytes();
    QFile file(file_);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray(179, 'x'));
    file.close();
    program.fp.agent->calls.clear();
    open([&](frmApp& f) {
        EXPECT_EQ(lines(f.List1), QStringList({u"Mail"_s, u"Music"_s}));
        EXPECT_EQ(f.txtVoice->text(), u"Read my mail"_s);
        EXPECT_FALSE(f.cmdUp->isEnabled());
        f.List1->setCurrentRow(1);
        EXPECT_EQ(f.txtPath->text(), u"player"_s);
        EXPECT_TRUE(f.chkVisible->isChecked());
        EXPECT_FALSE(f.chkVoice->isChecked());
        EXPECT_FALSE(f.cmdDown->isEnabled());
        click(f.cmdClose);
    });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_TRUE(program.fp.agent->calls.contains(u"Commands.RemoveAll()"_s));
}

TEST_F(frmAppTest, MissingFieldsAndTakenTitlesOrVoicesAreRefused)
{
    const QString missing = u"Missing Data"_s;
    const QString taken = u"Cannot Add Item"_s;
    const struct {
        QString name, voice, path, refusal;
    } cases[] = {
        {u"   "_s, u"v"_s, u"p"_s, missing},        {u"New"_s, u"v"_s, u"  "_s, missing},
        {u"Other"_s, u"Say word"_s, u"p"_s, taken}, {u" Word "_s, u"fresh"_s, u"p"_s, taken},
        {u"word"_s, u"say word"_s, u"p"_s, {}},     {u"New"_s, QString(), u"p"_s, missing},
    };
    open([&](frmApp& f) {
        add(f, u"Word"_s, u"Say word"_s, u"/bin/w"_s);
        for (const auto& c : cases) {
            program.fp.dialogs.boxes.clear();
            const int before = f.AppCount();
            add(f, c.name, c.voice, c.path);
            EXPECT_EQ(program.fp.dialogs.titles(),
                      c.refusal.isEmpty() ? QStringList() : QStringList{c.refusal})
                << c.name.toStdString();
            EXPECT_EQ(f.AppCount(), before + int(c.refusal.isEmpty())) << c.name.toStdString();
        }
        EXPECT_EQ(lines(f.List1), QStringList({u"Word"_s, u"word"_s}));
        EXPECT_EQ(
            program.fp.dialogs.boxes,
            (std::vector<fakes::Box>{
                {platform::BoxIcon::Warning, platform::BoxButtons::OK, missing,
                 u"Some fields are missing, please enter all fields the add application"_s}}));

        // An entry may keep its own title and voice, not take another's.
        program.fp.dialogs.boxes.clear();
        f.List1->setCurrentRow(0);
        click(f.cmdChange);
        EXPECT_TRUE(program.fp.dialogs.boxes.empty());
        type(f.txtVoice, u"say word"_s);
        click(f.cmdChange);
        EXPECT_EQ(program.fp.dialogs.titles(), QStringList{taken});
        type(f.txtVoice, u"Say it"_s);
        type(f.txtName, u"Words"_s);
        click(f.cmdChange);
        EXPECT_EQ(lines(f.List1), QStringList({u"Words"_s, u"word"_s}));
        EXPECT_EQ(f.AppList.at(0).Voice, u"Say it"_s);
    });
}

TEST_F(frmAppTest, DeletingAndMovingKeepASensibleSelectionAndDeletingAllRemovesTheFile)
{
    keep({u"A"_s, u"B"_s, u"C"_s, u"D"_s});
    auto del = [&](frmApp& f, BoxAnswer answer) {
        program.fp.dialogs.answers = {answer};
        click(f.cmdDel);
    };
    open([&](frmApp& f) {
        f.List1->setCurrentRow(3);
        del(f, BoxAnswer::No);
        EXPECT_EQ(f.AppCount(), 4);
        del(f, BoxAnswer::Yes);
        EXPECT_EQ(f.List1->currentRow(), 2);
        EXPECT_EQ(f.txtName->text(), u"C"_s);

        f.List1->setCurrentRow(0);
        del(f, BoxAnswer::Yes);
        EXPECT_EQ(lines(f.List1), QStringList({u"B"_s, u"C"_s}));
        EXPECT_EQ(f.List1->currentRow(), 0);
        EXPECT_EQ(f.txtName->text(), u"B"_s);

        // The routines refuse at the ends as the buttons do.
        f.cmdUp_Click();
        click(f.cmdDown);
        EXPECT_EQ(lines(f.List1), QStringList({u"C"_s, u"B"_s}));
        EXPECT_EQ(f.AppList.at(1).Title, u"B"_s);
        f.cmdDown_Click();
        click(f.cmdUp);
        EXPECT_EQ(f.AppList.at(0).Title, u"B"_s);
        EXPECT_EQ(f.List1->currentRow(), 0);

        del(f, BoxAnswer::Yes);
        del(f, BoxAnswer::Yes);
        EXPECT_FALSE(f.cmdDel->isEnabled());
        EXPECT_FALSE(f.cmdChange->isEnabled());
        EXPECT_EQ(f.txtName->text(), u"C"_s);
        type(f.txtVoice, u"new voice"_s);
        click(f.cmdAdd);
        EXPECT_EQ(lines(f.List1), QStringList{u"C"_s});
        f.List1->setCurrentRow(0);
        del(f, BoxAnswer::Yes);
        click(f.cmdClose);
    });
    // With the last entry gone, the file and the commands go too.
    EXPECT_FALSE(QFile::exists(file_));
    EXPECT_TRUE(appCommands().isEmpty());
    EXPECT_EQ(program.app.AppPaths.size(), 1u);
}

TEST_F(frmAppTest, ACancelledFileDialogCopiesTheNameChosenLast)
{
    program.fp.dialogs.files = {u"/usr/bin/first"_s, QString()};
    open([&](frmApp& f) {
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), u"/usr/bin/first"_s);
        type(f.txtPath, u"typed"_s);
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), u"/usr/bin/first"_s);
    });
    open([&](frmApp& f) {
        type(f.txtPath, u"typed"_s);
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), QString());
    });
    const auto& requests = program.fp.dialogs.fileRequests;
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].filter, u"Application Files (*.exe) |*.exe|All Files (*.*) |*.*"_s);
    EXPECT_EQ(requests[0].title, u"Application's Path.."_s);
    EXPECT_EQ(requests[1].fileName, u"/usr/bin/first"_s);
    EXPECT_EQ(requests[2].fileName, QString());
}

TEST_F(frmAppTest, FileTroubleShowsItsBoxAndKeepsTheProgramUsable)
{
    // A write that fails offers Retry; Cancel closes without rebuilding the commands.
    program.fp.dialogs.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    open([&](frmApp& f) {
        add(f, u"A"_s, u"a"_s, u"a"_s);
        ASSERT_TRUE(QDir(dir.path()).mkdir(u"Apps.cfg"_s));
        click(f.cmdClose);
        EXPECT_FALSE(f.isVisible());
    });
    const QString title = "Cannot Open "_L1 + file_;
    EXPECT_EQ(program.fp.dialogs.titles(), QStringList({title, title}));
    EXPECT_TRUE(appCommands().isEmpty());
    EXPECT_FALSE(program.character().Commands().Visible());

    // A file that cannot be read keeps the window shut.
    program.fp.dialogs.boxes.clear();
    bool shown = false;
    open([&](frmApp&) { shown = true; });
    EXPECT_FALSE(shown);
    EXPECT_EQ(program.fp.dialogs.titles(), QStringList{title});
    EXPECT_EQ(program.app.ModalOpen, 0);
    EXPECT_TRUE(program.character().Commands().Visible());
}

TEST_F(frmAppTest, TheTitleBarCloseDropsTheEditsAndBringsTheCommandsBack)
{
    keep({u"A"_s});
    const QByteArray kept = fileBytes();
    program.form().mnuViewTop->setChecked(true);
    program.app.OnTop = true;
    program.form().Timer2->start();
    program.app.ReadingClip = true;
    open([&](frmApp& f) {
        EXPECT_EQ(program.app.ModalOpen, 1);
        EXPECT_FALSE(program.app.OnTop);
        EXPECT_FALSE(program.character().Commands().Visible());
        EXPECT_FALSE(program.form().Timer2->isActive());
        add(f, u"B"_s, u"b"_s, u"b"_s);
        f.close();
    });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_TRUE(program.character().Commands().Visible());
    EXPECT_EQ(program.app.ModalOpen, 0);
    EXPECT_TRUE(program.app.OnTop);
    EXPECT_FALSE(program.form().Timer2->isActive());
}

TEST_F(frmAppTest, EveryControlIsNamedAndTheOptionButtonsOpenTheirTabs)
{
    std::vector<int> tabs;
    program.app.Hooks.ShowOptions = [&](int tab) { tabs.push_back(tab); };
    open([&](frmApp& f) {
        ExpectFocusableControlsNamed(f);
        // Not by its caption "..".
        EXPECT_NE(f.cmdBrowse->accessibleName(), QString());
        click(f.cmdEnable);
        click(f.cmdCommands);
    });
    EXPECT_EQ(tabs, (std::vector<int>{2, 3}));
}

// Hidden and NoDisplay entries are not offered: "Gone" would come before the pick by Down, and
// "secret" would match.
TEST_F(frmAppTest, APickAmongTheInstalledApplicationsFillsTheBoxes)
{
    DesktopEntries entries;
    const struct {
        QString typed;
        std::vector<Qt::Key> keys;
        QString name, voice, path;
    } picks[] = {
        {u"rech"_s, {Qt::Key_Return}, u"Rechner"_s, u"Rechner"_s, u"true"_s},
        {u"VIEW"_s, {Qt::Key_Return}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
        {u"calc"_s, {Qt::Key_Escape}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
        {u"secret"_s, {Qt::Key_Return}, u"Viewer"_s, u"Rechner"_s, u"cat --number"_s},
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
    open([&](frmApp& form) {
        for (const auto& pick : picks) {
            if (pick.name == LongName.left(50))
                form.txtVoice->clear();
            onPicker = [&](InstalledAppPicker& picker) {
                QTest::keyClicks(picker.txtSearch, pick.typed);
                for (Qt::Key key : pick.keys)
                    QTest::keyClick(picker.txtSearch, key);
            };
            form.mnuBrowseInstalled->trigger();
            EXPECT_EQ(form.txtName->text(), pick.name) << pick.typed.toStdString();
            EXPECT_EQ(form.txtVoice->text(), pick.voice) << pick.typed.toStdString();
            EXPECT_EQ(form.txtPath->text(), pick.path) << pick.typed.toStdString();
        }
    });
}

} // namespace
