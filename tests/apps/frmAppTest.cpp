#include "apps/frmApp.h"

#include "apps/AppsFile.h"
#include "fakes/LoadedProgram.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
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

void enter(frmApp& f, const QString& name, const QString& voice, const QString& path)
{
    type(f.txtName, name);
    type(f.txtVoice, voice);
    type(f.txtPath, path);
}

void add(frmApp& f, const QString& name)
{
    enter(f, name, name + QStringLiteral(" voice"), QStringLiteral("/bin/") + name);
    click(f.cmdAdd);
}

// The bytes of one record as the file holds them.
QByteArray recordBytes(const char* title, const char* voice, const char* path, char visible,
                       char voiceOn)
{
    return QByteArray(title).leftJustified(50, ' ') + QByteArray(voice).leftJustified(50, ' ') +
           QByteArray(path).leftJustified(255, ' ') + QByteArray(1, visible) + QByteArray(1, '\0') +
           QByteArray(1, voiceOn) + QByteArray(1, '\0');
}

class frmAppTest : public ::testing::Test
{
protected:
    frmAppTest()
    {
        program.app.AppPath = dir.path();
        program.fp.onModal = [this](QDialog& dialog) {
            if (auto* form = qobject_cast<frmApp*>(&dialog)) {
                form->show();
                onWindow(*form);
            }
        };
    }

    // Opens the window from the main menu; steps act on it while it is up.
    void open(std::function<void(frmApp&)> steps)
    {
        onWindow = std::move(steps);
        program.form().mnuQuorlApp->trigger();
    }

    // A window with the given entries added and kept in Apps.cfg.
    void keep(const QStringList& names)
    {
        open([&](frmApp& f) {
            for (const QString& name : names)
                add(f, name);
            click(f.cmdClose);
        });
        program.fp.agent->calls.clear();
    }

    QByteArray fileBytes() const
    {
        QFile file(AppsFilePath(dir.path()));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The commands added for applications, numbered " 1", " 2"...
    QStringList appCommands() const
    {
        return program.fp.agent->calls.filter(
            QRegularExpression(QStringLiteral("^Commands\\.Add\\( \\d")));
    }

    QStringList boxTitles() const
    {
        QStringList titles;
        for (const fakes::Box& box : program.fp.dialogs.boxes)
            titles << box.title;
        return titles;
    }

    fakes::LoadedProgram program;
    QTemporaryDir dir;
    std::function<void(frmApp&)> onWindow;
};

TEST_F(frmAppTest, AddingThreeKeepsThemInTheFileAndTheCommandList)
{
    open([&](frmApp& f) {
        EXPECT_EQ(f.windowTitle(), QStringLiteral("Quorl Application Setup"));
        enter(f, QStringLiteral("Editor"), QStringLiteral("Open the editor"),
              QStringLiteral("/usr/bin/editor --new"));
        click(f.cmdAdd);
        enter(f, QStringLiteral("Mail"), QStringLiteral("Read my mail"), QStringLiteral("mutt"));
        click(f.chkVisible);
        click(f.cmdAdd);
        enter(f, QStringLiteral("Music"), QStringLiteral("Play music"), QStringLiteral("player"));
        click(f.chkVisible);
        click(f.chkVoice);
        click(f.cmdAdd);
        click(f.cmdClose);
    });

    EXPECT_EQ(fileBytes(), recordBytes("Editor", "Open the editor", "/usr/bin/editor --new", 1, 1) +
                               recordBytes("Mail", "Read my mail", "mutt", 0, 1) +
                               recordBytes("Music", "Play music", "player", 1, 0));
    EXPECT_EQ(appCommands(),
              QStringList({QStringLiteral("Commands.Add( 1,Editor,Open the editor,1,1)"),
                           QStringLiteral("Commands.Add( 2,Mail,Read my mail,1,0)"),
                           QStringLiteral("Commands.Add( 3,Music,Play music,0,1)")}));
    EXPECT_EQ(program.app.AppPaths[1], QStringLiteral("/usr/bin/editor --new"));
    EXPECT_TRUE(program.character().Commands().Visible());
    EXPECT_EQ(program.app.ModalOpen, 0);

    open([&](frmApp& f) {
        EXPECT_EQ(lines(f.List1), QStringList({QStringLiteral("Editor"), QStringLiteral("Mail"),
                                               QStringLiteral("Music")}));
        EXPECT_EQ(f.List1->currentRow(), 0);
        EXPECT_EQ(f.txtVoice->text(), QStringLiteral("Open the editor"));
        EXPECT_EQ(f.txtPath->text(), QStringLiteral("/usr/bin/editor --new"));
        EXPECT_FALSE(f.cmdUp->isEnabled());
        f.List1->setCurrentRow(2);
        EXPECT_EQ(f.txtName->text(), QStringLiteral("Music"));
        EXPECT_TRUE(f.chkVisible->isChecked());
        EXPECT_FALSE(f.chkVoice->isChecked());
        EXPECT_FALSE(f.cmdDown->isEnabled());
    });
}

TEST_F(frmAppTest, MissingFieldsAndTakenTitlesOrVoicesAreRefused)
{
    const QString missing = QStringLiteral("Missing Data");
    const QString taken = QStringLiteral("Cannot Add Item");
    struct Case {
        const char* name;
        const char* voice;
        const char* path;
        QString refusal;
    } cases[] = {
        {"   ", "v", "p", missing},      {"New", "v", "  ", missing},
        {"New", "", "p", missing},       {"Other", "Say word", "p", taken},
        {" Word ", "fresh", "p", taken}, {"word", "say word", "p", QString()},
    };
    open([&](frmApp& f) {
        enter(f, QStringLiteral("Word"), QStringLiteral("Say word"), QStringLiteral("/bin/w"));
        click(f.cmdAdd);
        for (const Case& c : cases) {
            program.fp.dialogs.boxes.clear();
            const int before = f.AppCount();
            enter(f, QString::fromLatin1(c.name), QString::fromLatin1(c.voice),
                  QString::fromLatin1(c.path));
            click(f.cmdAdd);
            EXPECT_EQ(boxTitles(), c.refusal.isEmpty() ? QStringList() : QStringList{c.refusal})
                << c.name;
            EXPECT_EQ(f.AppCount(), before + (c.refusal.isEmpty() ? 1 : 0)) << c.name;
        }
        EXPECT_EQ(lines(f.List1), QStringList({QStringLiteral("Word"), QStringLiteral("word")}));

        // An entry may keep its own title and voice, not take another's.
        program.fp.dialogs.boxes.clear();
        f.List1->setCurrentRow(0);
        click(f.cmdChange);
        EXPECT_TRUE(program.fp.dialogs.boxes.empty());
        type(f.txtVoice, QStringLiteral("say word"));
        click(f.cmdChange);
        EXPECT_EQ(boxTitles(), QStringList{taken});
        EXPECT_EQ(program.fp.dialogs.boxes.at(0).text,
                  QStringLiteral("An entry with same name or voice command exists"));
        type(f.txtVoice, QStringLiteral("Say it"));
        type(f.txtName, QStringLiteral("Words"));
        click(f.cmdChange);
        EXPECT_EQ(lines(f.List1), QStringList({QStringLiteral("Words"), QStringLiteral("word")}));
        EXPECT_EQ(f.AppList.at(0).Voice, QStringLiteral("Say it"));
    });
}

TEST_F(frmAppTest, TheMissingDataBoxSaysWhatIsMissing)
{
    open([&](frmApp& f) { click(f.cmdAdd); });
    ASSERT_EQ(program.fp.dialogs.boxes.size(), 1u);
    const fakes::Box& box = program.fp.dialogs.boxes[0];
    EXPECT_EQ(box.icon, platform::BoxIcon::Warning);
    EXPECT_EQ(
        box.text,
        QStringLiteral("Some fields are missing, please enter all fields the add application"));
}

TEST_F(frmAppTest, WithNoFileTheEditButtonsAreEnabledButDoNothing)
{
    open([&](frmApp& f) {
        for (QPushButton* b : {f.cmdChange, f.cmdDel, f.cmdUp, f.cmdDown}) {
            EXPECT_TRUE(b->isEnabled()) << b->text().toStdString();
            click(b);
        }
        EXPECT_TRUE(program.fp.dialogs.boxes.empty());
        EXPECT_EQ(f.List1->count(), 0);
        EXPECT_TRUE(f.AppList.empty());
    });
}

TEST_F(frmAppTest, DeletingAndMovingKeepASensibleSelection)
{
    keep({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("D")});
    open([&](frmApp& f) {
        f.List1->setCurrentRow(3);
        program.fp.dialogs.answers = {BoxAnswer::No};
        click(f.cmdDel);
        EXPECT_EQ(f.AppCount(), 4);
        program.fp.dialogs.answers = {BoxAnswer::Yes};
        click(f.cmdDel);
        EXPECT_EQ(f.List1->currentRow(), 2);
        EXPECT_EQ(f.txtName->text(), QStringLiteral("C"));
        EXPECT_FALSE(f.cmdDown->isEnabled());

        f.List1->setCurrentRow(0);
        program.fp.dialogs.answers = {BoxAnswer::Yes};
        click(f.cmdDel);
        EXPECT_EQ(lines(f.List1), QStringList({QStringLiteral("B"), QStringLiteral("C")}));
        EXPECT_EQ(f.List1->currentRow(), 0);
        EXPECT_EQ(f.txtName->text(), QStringLiteral("B"));
        EXPECT_FALSE(f.cmdUp->isEnabled());

        // The routines refuse at the ends as the buttons do.
        f.cmdUp_Click();
        click(f.cmdDown);
        EXPECT_EQ(lines(f.List1), QStringList({QStringLiteral("C"), QStringLiteral("B")}));
        EXPECT_EQ(f.AppList.at(1).Title, QStringLiteral("B"));
        EXPECT_EQ(f.List1->currentRow(), 1);
        EXPECT_FALSE(f.cmdDown->isEnabled());
        f.cmdDown_Click();
        click(f.cmdUp);
        EXPECT_EQ(f.AppList.at(0).Title, QStringLiteral("B"));
        EXPECT_EQ(f.List1->currentRow(), 0);

        for (int i = 0; i < 2; ++i) {
            program.fp.dialogs.answers = {BoxAnswer::Yes};
            click(f.cmdDel);
        }
        EXPECT_EQ(f.List1->count(), 0);
        EXPECT_FALSE(f.cmdDel->isEnabled());
        EXPECT_FALSE(f.cmdChange->isEnabled());
        EXPECT_EQ(f.txtName->text(), QStringLiteral("C"));
        type(f.txtVoice, QStringLiteral("new voice"));
        click(f.cmdAdd);
        EXPECT_EQ(lines(f.List1), QStringList{QStringLiteral("C")});
    });
}

TEST_F(frmAppTest, ACancelledFileDialogCopiesTheNameChosenLast)
{
    auto browse = [](frmApp& f) { f.mnuBrowseFile->trigger(); };
    program.fp.dialogs.files = {QStringLiteral("/usr/bin/first"), QString()};
    open([&](frmApp& f) {
        browse(f);
        EXPECT_EQ(f.txtPath->text(), QStringLiteral("/usr/bin/first"));
        type(f.txtPath, QStringLiteral("typed"));
        browse(f);
        EXPECT_EQ(f.txtPath->text(), QStringLiteral("/usr/bin/first"));
    });
    open([&](frmApp& f) {
        type(f.txtPath, QStringLiteral("typed"));
        browse(f);
        EXPECT_EQ(f.txtPath->text(), QString());
    });
    const auto& requests = program.fp.dialogs.fileRequests;
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_EQ(requests[0].filter,
              QStringLiteral("Application Files (*.exe) |*.exe|All Files (*.*) |*.*"));
    EXPECT_EQ(requests[0].title, QStringLiteral("Application's Path.."));
    EXPECT_EQ(requests[1].fileName, QStringLiteral("/usr/bin/first"));
    EXPECT_EQ(requests[2].fileName, QString());
}

TEST_F(frmAppTest, CloseRewritesTheFileAndRebuildsTheCommands)
{
    keep({QStringLiteral("A")});
    const QByteArray kept = fileBytes();
    {
        QFile file(AppsFilePath(dir.path()));
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(QByteArray(179, 'x'));
    }
    open([&](frmApp& f) { click(f.cmdClose); });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_EQ(appCommands().size(), 1);
    EXPECT_TRUE(program.fp.agent->calls.contains(QStringLiteral("Commands.RemoveAll()")));

    program.fp.agent->calls.clear();
    open([&](frmApp& f) {
        program.fp.dialogs.answers = {BoxAnswer::Yes};
        click(f.cmdDel);
        click(f.cmdClose);
    });
    EXPECT_FALSE(QFile::exists(AppsFilePath(dir.path())));
    EXPECT_TRUE(appCommands().isEmpty());
    EXPECT_EQ(program.app.AppPaths.size(), 1u);
    EXPECT_TRUE(program.character().Commands().Visible());
}

TEST_F(frmAppTest, AFailedWriteOffersRetryAndCancelLeavesTheCommandsAlone)
{
    program.fp.dialogs.answers = {BoxAnswer::Retry, BoxAnswer::Cancel};
    open([&](frmApp& f) {
        add(f, QStringLiteral("A"));
        ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("Apps.cfg")));
        click(f.cmdClose);
        EXPECT_FALSE(f.isVisible());
    });
    const QString title = QStringLiteral("Cannot Open ") + AppsFilePath(dir.path());
    EXPECT_EQ(boxTitles(), QStringList({title, title}));
    EXPECT_TRUE(program.fp.agent->callsStartingWith(QStringLiteral("Commands.Add")).isEmpty());
    EXPECT_FALSE(program.character().Commands().Visible());
}

TEST_F(frmAppTest, TheTitleBarCloseDropsTheEditsAndBringsTheCommandsBack)
{
    keep({QStringLiteral("A")});
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
        EXPECT_EQ(program.form().windowTitle(),
                  QStringLiteral("Quorl - Reading From Clip Board (Paused)"));
        add(f, QStringLiteral("B"));
        f.close();
    });
    EXPECT_EQ(fileBytes(), kept);
    EXPECT_TRUE(program.character().Commands().Visible());
    EXPECT_EQ(program.app.ModalOpen, 0);
    EXPECT_TRUE(program.app.OnTop);
    EXPECT_FALSE(program.form().Timer2->isActive());
}

TEST_F(frmAppTest, AnUnreadableFileIsReportedAndTheWindowStaysShut)
{
    ASSERT_TRUE(QDir(dir.path()).mkdir(QStringLiteral("Apps.cfg")));
    bool shown = false;
    open([&](frmApp&) { shown = true; });
    EXPECT_FALSE(shown);
    EXPECT_EQ(boxTitles(), QStringList{QStringLiteral("Cannot Open ") + AppsFilePath(dir.path())});
    EXPECT_EQ(program.app.ModalOpen, 0);
    EXPECT_TRUE(program.character().Commands().Visible());
}

TEST_F(frmAppTest, EveryControlIsReachedByTabInOrderWithItsOwnName)
{
    std::vector<int> tabs;
    program.app.Hooks.ShowOptions = [&](int tab) { tabs.push_back(tab); };
    open([&](frmApp& f) {
        const std::vector<QWidget*> order{f.List1,     f.txtName,    f.txtVoice,   f.txtPath,
                                          f.cmdBrowse, f.chkVisible, f.chkVoice,   f.cmdAdd,
                                          f.cmdChange, f.cmdDel,     f.cmdUp,      f.cmdDown,
                                          f.cmdClose,  f.cmdEnable,  f.cmdCommands};
        f.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&f));
        f.List1->setFocus();
        QStringList names;
        for (QWidget* expected : order) {
            EXPECT_EQ(QApplication::focusWidget(), expected)
                << expected->accessibleName().toStdString();
            EXPECT_FALSE(expected->accessibleName().isEmpty());
            names << expected->accessibleName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        names.removeDuplicates();
        EXPECT_EQ(names.size(), int(order.size()));
        click(f.cmdEnable);
        click(f.cmdCommands);
    });
    EXPECT_EQ(tabs, (std::vector<int>{2, 3}));
}

} // namespace
