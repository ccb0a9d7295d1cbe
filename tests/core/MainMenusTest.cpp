#include "agent/sheet/PropertySheet.h"
#include "commands/frmShut.h"
#include "core/MainWindow.h"
#include "core/ReadingState.h"
#include "fakes/Accessibility.h"
#include "fakes/LoadedProgram.h"
#include "info/frmAbout.h"
#include "info/frmSplash.h"

#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

struct MainMenusTest : ::testing::Test, fakes::ProgramWindow {
};

TEST_F(MainMenusTest, WebPagesAndThePropertySheet)
{
    app.MainForm->mnuFileInstall->trigger();
    app.MainForm->mnuFileDownload->trigger();
    app.MainForm->mnuAboutSite->trigger();
    EXPECT_EQ(fp.shell.urls, (QStringList{InstallAgentPageUrl, CharactersPageUrl, HomePageUrl}));
    app.MainForm->mnuFileAgent->trigger();
    EXPECT_TRUE(fp.agent->propertySheetVisible);
}

TEST_F(MainMenusTest, SplashFromTheMenuWaitsForAClick)
{
    bool timerRunning = true;
    fp.onModal = [&](QDialog& dialog) {
        timerRunning = static_cast<frmSplash&>(dialog).Timer1->isActive();
        EXPECT_EQ(app.ModalOpen, 1);
    };
    app.MainForm->mnuAboutSplash->trigger();
    EXPECT_FALSE(timerRunning);
    EXPECT_EQ(app.ModalOpen, 0);
}

TEST_F(MainMenusTest, TheTrayIconIsIgnoredWhileAWindowOfTheProgramIsUp)
{
    CreateIcon(app);
    app.ModalOpen = 1;
    fp.tray.doubleClick();
    EXPECT_FALSE(app.MainForm->isVisible());
    app.ModalOpen = 0;
    fp.tray.doubleClick();
    EXPECT_TRUE(app.MainForm->isVisible());
}

// receivers() is protected; a member pointer taken through a derived class reaches it.
struct SignalProbe : QObject {
    static int Receivers(const QObject* object, const char* signal)
    {
        return (object->*(&SignalProbe::receivers))(signal);
    }
};

TEST_F(MainMenusTest, EveryEnabledEntryAndButtonDoesSomething)
{
    UpdateReadingControls(app);
    int entries = 0;
    for (QAction* menu : app.MainForm->menuBar()->actions()) {
        for (QAction* entry : menu->menu()->actions()) {
            if (entry->isSeparator())
                continue;
            ++entries;
            // Its menu listens to every entry; a check mark that only turns over is an action of
            // its own.
            const bool acts =
                entry->isCheckable() || SignalProbe::Receivers(entry, SIGNAL(triggered(bool))) > 1;
            EXPECT_TRUE(acts || !entry->isEnabled()) << qPrintable(entry->text()) << " is silent";
        }
    }
    EXPECT_EQ(entries, 17);
    for (QPushButton* button : app.MainForm->findChildren<QPushButton*>()) {
        if (!button->isVisibleTo(app.MainForm.get()))
            continue;
        EXPECT_TRUE(SignalProbe::Receivers(button, SIGNAL(clicked(bool))) > 0 ||
                    !button->isEnabled())
            << qPrintable(button->text()) << " is silent";
    }
}

TEST_F(MainMenusTest, EnterSaysTheTextAndShiftEnterBreaksTheLine)
{
    frmMain& f = *app.MainForm;
    f.show();
    QSignalSpy talk(f.cmdTalk, &QPushButton::clicked);
    QSignalSpy read(f.Read, &QPushButton::clicked);
    f.txtText->setPlainText(QStringLiteral("one"));
    f.txtText->moveCursor(QTextCursor::End);
    QTest::keyClick(f.txtText, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(f.txtText, Qt::Key_Enter, Qt::ControlModifier);
    EXPECT_EQ(f.txtText->toPlainText(), QStringLiteral("one\n\n"));
    EXPECT_EQ(talk.count(), 0);
    QTest::keyClick(f.txtText, Qt::Key_Return);
    EXPECT_EQ(talk.count(), 1);
    QTest::keyClick(f.chkWhisper, Qt::Key_Enter);
    EXPECT_EQ(talk.count(), 2) << "Enter anywhere presses the default button";
    f.Read->setFocus();
    QTest::keyClick(f.Read, Qt::Key_Return);
    EXPECT_EQ(read.count(), 1) << "a focused button takes Enter itself";
    EXPECT_EQ(talk.count(), 2);
}

TEST(AccessibilityTest, EveryControlIsReachableAndNamed)
{
    fakes::LoadedProgram program;
    frmSplash splash(program.app);
    frmAbout about(program.app);
    frmShut shut(program.app);
    agent::PropertySheet sheet;
    for (QWidget* window :
         std::initializer_list<QWidget*>{&program.form(), &splash, &about, &shut, &sheet}) {
        SCOPED_TRACE(window->metaObject()->className());
        ExpectFocusableControlsNamed(*window);
    }
}
