#include "core/MainWindow.h"
#include "fakes/LoadedProgram.h"
#include "info/frmSplash.h"

#include <QAction>
#include <QDialog>
#include <QPushButton>
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
    EXPECT_TRUE(fp.shell.urls[0].endsWith("/quorl/installagent.html"));
    EXPECT_TRUE(fp.shell.urls[1].endsWith("/quorl/characters.html"));
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

TEST_F(MainMenusTest, UnderscoreButtonHidesTheWindowAndTheTrayBringsItBack)
{
    app.MainForm->show();
    CreateIcon(app);
    app.MainForm->Command1->click();
    EXPECT_FALSE(app.MainForm->isVisible());
    app.ModalOpen = 1;
    fp.tray.doubleClick();
    EXPECT_FALSE(app.MainForm->isVisible()) << "ignored while a window of the program is up";
    app.ModalOpen = 0;
    fp.tray.doubleClick();
    EXPECT_TRUE(app.MainForm->isVisible());
}
