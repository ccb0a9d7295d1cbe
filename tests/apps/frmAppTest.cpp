#include "apps/frmApp.h"

#include "apps/AppsFile.h"
#include "apps/InstalledAppPicker.h"
#include "apps/LoadApps.h"
#include "fakes/Accessibility.h"
#include "fakes/CharacterFixture.h"
#include "fakes/ItemTexts.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

using platform::BoxAnswer;

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

struct frmAppTest : CharacterFixture, ::testing::Test {
    frmAppTest()
    {
        app.AppPath = dir.path();
        fp.onModal = [this](QDialog& dialog) {
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
        form().mnuQuorlApp->trigger();
    }

    QByteArray fileBytes() const
    {
        QFile file(file_);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The commands added for applications, named " 1", " 2"...
    QStringList appCommands() const
    {
        return fp.agent->calls.filter(QRegularExpression(R"(^Commands\.Add\( \d)"));
    }

    QTemporaryDir dir;
    QString file_ = AppsFilePath(dir.path());
    std::function<void(frmApp&)> onWindow;
    std::function<void(InstalledAppPicker&)> onPicker;
};

// Cutting, padding and trimming the fields, and the code page, are the fixed fields' own.
TEST(AppRecordTest, EncodesToTheExactBytesOfTheFile)
{
    // The text, then blanks to the width.
    const auto field = [](const QByteArray& text, int width) { return text.leftJustified(width); };
    const std::pair<AppRecord, QByteArray> cases[] = {
        {{"Café – Résumé €", "(Cafe|Coffee)", "/opt/café/run", 1, 0},
         field("Caf\xe9 \x96 R\xe9sum\xe9 \x80", 50) + field("(Cafe|Coffee)", 50) +
             field("/opt/caf\xe9/run", 255) + QByteArray("\x01\x00\x00\x00", 4)},
        // The byte order of the flags shows with values above 255 and below 0.
        {{"x", "y", "z", 0x0102, -2},
         field("x", 50) + field("y", 50) + field("z", 255) + QByteArray("\x02\x01\xfe\xff", 4)},
    };
    for (const auto& [record, bytes] : cases) {
        ASSERT_EQ(EncodeAppRecord(record).size(), 359);
        EXPECT_EQ(EncodeAppRecord(record).toHex(), bytes.toHex()) << record.Title.toStdString();
        EXPECT_EQ(DecodeAppRecord(bytes), record) << record.Title.toStdString();
    }
}

// A file cut inside its second record: the missing bytes read as blanks and zero.
TEST(AppsFileTest, AShortLastRecordIsFilledAndAnAbsentFileIsEmpty)
{
    QTemporaryDir dir;
    const QString name = dir.filePath("Apps.cfg");
    EXPECT_TRUE(ReadAppsFile(name).empty());
    const AppRecord one = {"Title 1", "Voice 1", "/usr/bin/one --arg", 1, 1};
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        (EncodeAppRecord(one) + EncodeAppRecord({"T2", "V2", "/usr/bin/two", 1, 1})).left(539));
    file.close();
    EXPECT_EQ(ReadAppsFile(name),
              (std::vector<AppRecord>{one, {"T2", "V2", "/usr/bin/two", 0, 0}}));
}

using LoadAppsTest = frmAppTest;

// Any flag other than zero counts as true.
TEST_F(LoadAppsTest, FlagsAreTrueUnlessZeroAndNothingLoadsWithoutSpeechInput)
{
    WriteAppsFile(file_, {{"T", "V", "p", -1, 256}});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,T,V,1,1)"});

    fp.agent->calls.clear();
    fp.agent->speechInputInstalled = false;
    app.AppPaths = {QString(), "left over"};
    LoadApps(app);
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
    EXPECT_TRUE(fp.dialogs.boxes.empty());
}

TEST_F(LoadAppsTest, AFileThatCannotBeOpenedShowsTheFileReadErrorBox)
{
    ASSERT_TRUE(QDir().mkpath(file_));
    LoadApps(app);
    ASSERT_EQ(fp.dialogs.boxes.size(), 2u);
    EXPECT_EQ(fp.dialogs.boxes[0],
              (fakes::Box{platform::BoxIcon::Critical, platform::BoxButtons::OK, "File Read Error",
                          "Please send the following info to " + SupportAddress +
                              " to help with a fix:\r\n" + file_}));
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.1 )"));
    EXPECT_EQ(app.AppPaths.size(), 1u);
    EXPECT_TRUE(fp.agent->calls.isEmpty());
}

TEST_F(LoadAppsTest, AFailingRecordKeepsTheCommandsBeforeItAndLeavesItsSlotEmpty)
{
    WriteAppsFile(file_, {{"Editor", "Open the editor", "/usr/bin/gedit --new-window", 1, 1},
                          {"Hidden", "(Hidden|Secret)", "secret", 0, 1},
                          {"Mail", "Mail", "mutt", 1, 0}});
    fp.agent->failCalls("Commands.Add( 2,", {1234, "Agent.Control.1", "refused"});
    LoadApps(app);
    EXPECT_EQ(fp.agent->calls, QStringList{"Commands.Add( 1,Editor,Open the editor,1,1)"});
    EXPECT_EQ(app.AppPaths, (std::vector<QString>{QString(), "/usr/bin/gedit --new-window",
                                                  QString(), QString()}));
    ASSERT_EQ(fp.dialogs.boxes.size(), 1u);
    ASSERT_EQ(errorBoxes().size(), 1);
    EXPECT_TRUE(errorBoxes()[0].contains("( 10.2 )"));
}

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
        EXPECT_TRUE(fp.dialogs.boxes.empty());

        click(f.chkVisible);
        add(f, "Mail", "Read my mail", "mutt");
        click(f.chkVisible);
        click(f.chkVoice);
        add(f, "Music", "Play music", "player");
        click(f.cmdClose);
    });

    EXPECT_EQ(ReadAppsFile(file_),
              (std::vector<AppRecord>{{"Mail", "Read my mail", "mutt", 0, 1},
                                      {"Music", "Play music", "player", 1, 0}}));
    EXPECT_EQ(appCommands(), QStringList({"Commands.Add( 1,Mail,Read my mail,1,0)",
                                          "Commands.Add( 2,Music,Play music,0,1)"}));
    EXPECT_EQ(std::pair(int(app.ModalOpen), character().Commands().Visible()), std::pair(0, true));

    // A close rewrites the file, here without the half record behind the two.
    const QByteArray kept = fileBytes();
    QFile file(file_);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(QByteArray(179, 'x'));
    file.close();
    fp.agent->calls.clear();
    open([&](frmApp& f) {
        EXPECT_EQ(ItemTexts(f.List1), QStringList({"Mail", "Music"}));
        EXPECT_EQ(f.txtVoice->text(), "Read my mail");
        EXPECT_FALSE(f.cmdUp->isEnabled());
        f.List1->setCurrentRow(1);
        EXPECT_EQ(std::tuple(f.txtPath->text(), f.chkVisible->isChecked(), f.chkVoice->isChecked(),
                             f.cmdDown->isEnabled()),
                  std::tuple(QString("player"), true, false, false));
        click(f.cmdClose);
    });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_TRUE(fp.agent->calls.contains("Commands.RemoveAll()"));
}

TEST_F(frmAppTest, MissingFieldsAndTakenTitlesOrVoicesAreRefused)
{
    const QString missing = "Missing Data", taken = "Cannot Add Item";
    const struct {
        QString name, voice, path, refusal;
    } cases[] = {
        {"   ", "v", "p", missing},        {"New", "v", "  ", missing},
        {"Other", "Say word", "p", taken}, {" Word ", "fresh", "p", taken},
        {"word", "say word", "p", {}},     {"New", QString(), "p", missing},
    };
    open([&](frmApp& f) {
        add(f, "Word", "Say word", "/bin/w");
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name.toStdString());
            fp.dialogs.boxes.clear();
            const int before = f.AppCount();
            add(f, c.name, c.voice, c.path);
            EXPECT_EQ(fp.dialogs.titles(), QStringList(c.refusal.isEmpty() ? 0 : 1, c.refusal));
            EXPECT_EQ(f.AppCount(), before + int(c.refusal.isEmpty()));
        }
        EXPECT_EQ(ItemTexts(f.List1), QStringList({"Word", "word"}));
        EXPECT_EQ(fp.dialogs.boxes,
                  (std::vector<fakes::Box>{
                      {platform::BoxIcon::Warning, platform::BoxButtons::OK, missing,
                       "Some fields are missing, please enter all fields the add application"}}));

        // An entry may keep its own title and voice, not take another's.
        fp.dialogs.boxes.clear();
        f.List1->setCurrentRow(0);
        click(f.cmdChange);
        EXPECT_TRUE(fp.dialogs.boxes.empty());
        type(f.txtVoice, "say word");
        click(f.cmdChange);
        EXPECT_EQ(fp.dialogs.titles(), QStringList{taken});
        type(f.txtVoice, "Say it");
        type(f.txtName, "Words");
        click(f.cmdChange);
        EXPECT_EQ(ItemTexts(f.List1), QStringList({"Words", "word"}));
        EXPECT_EQ(f.AppList.at(0).Voice, "Say it");
    });
}

TEST_F(frmAppTest, DeletingAndMovingKeepASensibleSelectionAndDeletingAllRemovesTheFile)
{
    WriteAppsFile(file_, {{"A", "a", "p", 1, 1},
                          {"B", "b", "p", 1, 1},
                          {"C", "c", "p", 1, 1},
                          {"D", "d", "p", 1, 1}});
    auto del = [&](frmApp& f, BoxAnswer answer) {
        fp.dialogs.answers = {answer};
        click(f.cmdDel);
    };
    open([&](frmApp& f) {
        f.List1->setCurrentRow(3);
        del(f, BoxAnswer::No);
        EXPECT_EQ(f.AppCount(), 4);
        del(f, BoxAnswer::Yes);
        EXPECT_EQ(std::pair(f.List1->currentRow(), f.txtName->text()), std::pair(2, QString("C")));

        f.List1->setCurrentRow(0);
        del(f, BoxAnswer::Yes);
        EXPECT_EQ(ItemTexts(f.List1), QStringList({"B", "C"}));
        EXPECT_EQ(std::pair(f.List1->currentRow(), f.txtName->text()), std::pair(0, QString("B")));

        // The routines refuse at the ends as the buttons do.
        f.cmdUp_Click();
        click(f.cmdDown);
        EXPECT_EQ(ItemTexts(f.List1), QStringList({"C", "B"}));
        EXPECT_EQ(f.AppList.at(1).Title, "B");
        f.cmdDown_Click();
        click(f.cmdUp);
        EXPECT_EQ(std::pair(f.List1->currentRow(), f.AppList.at(0).Title),
                  std::pair(0, QString("B")));

        del(f, BoxAnswer::Yes);
        del(f, BoxAnswer::Yes);
        EXPECT_EQ(std::pair(f.cmdDel->isEnabled(), f.cmdChange->isEnabled()),
                  std::pair(false, false));
        EXPECT_EQ(f.txtName->text(), "C");
        type(f.txtVoice, "new voice");
        click(f.cmdAdd);
        EXPECT_EQ(ItemTexts(f.List1), QStringList{"C"});
        f.List1->setCurrentRow(0);
        del(f, BoxAnswer::Yes);
        click(f.cmdClose);
    });
    // With the last entry gone, the file and the commands go too.
    EXPECT_FALSE(QFile::exists(file_));
    EXPECT_TRUE(appCommands().isEmpty());
    EXPECT_EQ(app.AppPaths.size(), 1u);
}

TEST_F(frmAppTest, ACancelledFileDialogCopiesTheNameChosenLast)
{
    fp.dialogs.files = {"/usr/bin/first", QString()};
    open([&](frmApp& f) {
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), "/usr/bin/first");
        type(f.txtPath, "typed");
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), "/usr/bin/first");
    });
    open([&](frmApp& f) {
        type(f.txtPath, "typed");
        f.mnuBrowseFile->trigger();
        EXPECT_EQ(f.txtPath->text(), QString());
    });
    const auto& r = fp.dialogs.fileRequests;
    ASSERT_EQ(r.size(), 3u);
    EXPECT_EQ((QStringList{r[0].filter, r[0].title, r[1].fileName, r[2].fileName}),
              (QStringList{"Application Files (*.exe) |*.exe|All Files (*.*) |*.*",
                           "Application's Path..", "/usr/bin/first", QString()}));
}

TEST_F(frmAppTest, FileTroubleShowsItsBoxAndKeepsTheProgramUsable)
{
    // A write that fails offers Retry; Cancel closes without rebuilding the commands.
    fp.dialogs.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    open([&](frmApp& f) {
        add(f, "A", "a", "a");
        ASSERT_TRUE(QDir(dir.path()).mkdir("Apps.cfg"));
        click(f.cmdClose);
        EXPECT_FALSE(f.isVisible());
    });
    const QString title = "Cannot Open " + file_;
    EXPECT_EQ(fp.dialogs.titles(), QStringList({title, title}));
    EXPECT_TRUE(appCommands().isEmpty());
    EXPECT_FALSE(character().Commands().Visible());

    // A file that cannot be read keeps the window shut.
    fp.dialogs.boxes.clear();
    bool shown = false;
    open([&](frmApp&) { shown = true; });
    EXPECT_FALSE(shown);
    EXPECT_EQ(fp.dialogs.titles(), QStringList{title});
    EXPECT_EQ(std::pair(int(app.ModalOpen), character().Commands().Visible()), std::pair(0, true));
}

TEST_F(frmAppTest, TheTitleBarCloseDropsTheEditsAndBringsTheCommandsBack)
{
    WriteAppsFile(file_, {{"A", "say A", "p", 1, 1}});
    const QByteArray kept = fileBytes();
    form().mnuViewTop->setChecked(true);
    app.OnTop = true;
    form().Timer2->start();
    app.ReadingClip = true;
    const auto state = [&] {
        return std::tuple(int(app.ModalOpen), app.OnTop, character().Commands().Visible(),
                          form().Timer2->isActive());
    };
    open([&](frmApp& f) {
        EXPECT_EQ(state(), std::tuple(1, false, false, false));
        add(f, "B", "b", "b");
        f.close();
    });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_EQ(state(), std::tuple(0, true, true, false));
}

TEST_F(frmAppTest, EveryControlIsNamedAndTheOptionButtonsOpenTheirTabs)
{
    std::vector<int> tabs;
    app.Hooks.ShowOptions = [&](int tab) { tabs.push_back(tab); };
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
    // An XDG data folder with entries of every kind the picker must tell apart.
    QTemporaryDir data, home;
    ASSERT_TRUE(QDir(data.path()).mkpath("applications/tools"));
    const auto write = [&](const QString& name, const QByteArray& keys) {
        QFile file(data.filePath("applications/" + name + ".desktop"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys + '\n');
    };
    const QString longName = "Long: Editor-Pro (2026 Edition) for everything you wanted";
    write("calc", "Name=Calculator\nName[de]=Rechner\nExec=true\nIcon=accessories-calculator");
    write("secret", "Name=Secret\nNoDisplay=true\nExec=true");
    write("gone", "Name=Gone\nHidden=true\nExec=true");
    write("tools/viewer", "# a comment\nName=Viewer\nExec=cat --number %U\nTerminal=true\n"
                          "TryExec=cat\n[Desktop Action new]\nName=New\nExec=false");
    write("echo", R"(Name=Quoted Echo
Exec="/bin/echo" "two words" "say \\"hi\\"" 100%% %f)");
    write("long", "Name=" + longName.toUtf8() + "\nExec=true --long");
    // Where the desktop's entries are looked for, and the language of their names.
    qputenv("XDG_DATA_DIRS", data.path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    qputenv("LANGUAGE", "de");
    const QStringList viewer = {"Viewer", "Rechner", "cat --number"};
    const struct {
        QString typed;
        std::vector<Qt::Key> keys;
        QStringList boxes; // name, voice, path
    } picks[] = {
        {"rech", {Qt::Key_Return}, {"Rechner", "Rechner", "true"}},
        {"VIEW", {Qt::Key_Return}, viewer},
        {"calc", {Qt::Key_Escape}, viewer},
        {"secret", {Qt::Key_Return}, viewer},
        {"o",
         {Qt::Key_Down, Qt::Key_Return},
         {"Quoted Echo", "Rechner", R"(/bin/echo "two words" "say """hi"""" 100%)"}},
        {{},
         {Qt::Key_Return},
         {longName.left(50), "Long Editor Pro 2026 Edition for everything you", "true --long"}},
    };
    open([&](frmApp& form) {
        for (const auto& pick : picks) {
            if (pick.typed.isEmpty())
                form.txtVoice->clear();
            onPicker = [&](InstalledAppPicker& picker) {
                QTest::keyClicks(picker.txtSearch, pick.typed);
                for (Qt::Key key : pick.keys)
                    QTest::keyClick(picker.txtSearch, key);
            };
            form.mnuBrowseInstalled->trigger();
            EXPECT_EQ(
                (QStringList{form.txtName->text(), form.txtVoice->text(), form.txtPath->text()}),
                pick.boxes)
                << pick.typed.toStdString();
        }
    });
}

} // namespace
