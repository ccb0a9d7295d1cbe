#include "commands/frmShut.h"

#include "commands/CharacterFixture.h"
#include "commands/VoiceCommands.h"
#include "core/Controls.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace
{

using fakes::ProgramEnded;

class frmShutTest : public CharacterFixture
{
protected:
    frmShutTest()
    {
        SetVoiceCommands(app);
        app.MainForm->show();
        fp.agent->calls.clear();
    }

    // What the dispatch does for a weighty command, reduced to the window's side.
    frmShut& ask(const QString& tag)
    {
        app.ConfirmPending = true;
        frmShut& form = LoadShutForm(app);
        setTag(&form, tag);
        character().Commands().Command("No").setEnabled(true);
        character().Commands().Command("Yes").setEnabled(true);
        form.show();
        return form;
    }
};

TEST_F(frmShutTest, TheWindowLooksTheSameForEveryUse)
{
    character().name = "Lumo";
    frmShut& form = ask("10");
    form.Label1->setText("Close Quorl");

    EXPECT_EQ(form.windowTitle(), QStringLiteral("Shut Down Windows"));
    EXPECT_EQ(form.Label1->font().family(), QStringLiteral("Times New Roman"));
    EXPECT_TRUE(form.Label1->font().bold());
    EXPECT_EQ(form.Label1->font().pointSize(), 18);
    EXPECT_EQ(form.Label1->palette().color(QPalette::WindowText), QColor(Qt::red));
    EXPECT_EQ(form.Label1->alignment(), Qt::AlignCenter);
    EXPECT_EQ(form.Label2->alignment(), Qt::AlignCenter);
    EXPECT_EQ(form.Label2->text(),
              QStringLiteral("You can say 'Yes' or 'No' and Lumo will understand."));
    EXPECT_EQ(form.cmdNo->text(), QStringLiteral("&NO"));
    EXPECT_EQ(form.cmdYes->text(), QStringLiteral("&YES"));
    EXPECT_EQ(form.cmdNo->nextInFocusChain(), form.cmdYes);
    EXPECT_FALSE(form.windowFlags().testFlag(Qt::WindowCloseButtonHint));
}

TEST_F(frmShutTest, LoadingTakesOverTheMainWindowAndUnloadingGivesItBack)
{
    const struct {
        bool mainVisible;
        bool topMost;
    } cases[] = {{true, false}, {false, false}, {true, true}, {false, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "visible " << c.mainVisible << " top " << c.topMost);
        app.MainForm->setVisible(c.mainVisible);
        app.MainForm->mnuViewTop->setChecked(c.topMost);
        app.OnTop = c.topMost;

        ask("1");
        EXPECT_EQ(ShutForm(app)->WasVisible, c.mainVisible);
        EXPECT_FALSE(app.MainForm->isVisible());
        EXPECT_FALSE(app.OnTop);
        EXPECT_EQ(app.ModalOpen, 1);
        EXPECT_FALSE(character().Commands().Visible());

        ShutForm(app)->cmdNo_Click();
        // Putting the window back on top also shows it, hidden or not.
        EXPECT_EQ(app.MainForm->isVisible(), c.mainVisible || c.topMost);
        EXPECT_EQ(app.OnTop, c.topMost);
        EXPECT_EQ(app.ModalOpen, 0);
        EXPECT_TRUE(character().Commands().Visible());
    }
}

TEST_F(frmShutTest, EscapeAnswersNo)
{
    frmShut& form = ask("1");
    QTest::keyClick(&form, Qt::Key_Escape);

    EXPECT_FALSE(app.ShutForm);
    EXPECT_TRUE(fp.agent->spoken().last().contains("That was close!"));
    EXPECT_FALSE(app.ConfirmPending);
    EXPECT_FALSE(character().Commands().Command("Yes").Enabled());
    EXPECT_FALSE(character().Commands().Command("No").Enabled());
    EXPECT_TRUE(fp.power.calls.empty());
    EXPECT_EQ(fp.process.ends, 0);
}

TEST_F(frmShutTest, YesAsksThePlatformFirstAndThenClosesTheProgram)
{
    const struct {
        QString tag;
        std::vector<std::pair<unsigned, unsigned>> power;
    } cases[] = {{"1", {{1, 0}}}, {"2", {{2, 0}}}, {"10", {}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.tag.toStdString());
        fp.power.calls.clear();
        fp.store.writes.clear();
        app.MainForm->mnuFileSave->setChecked(false);
        ask(c.tag);
        fp.power.onCall = [&] {
            EXPECT_TRUE(app.ShutForm);
            EXPECT_TRUE(fp.store.writes.isEmpty());
        };

        EXPECT_THROW(ShutForm(app)->cmdYes->click(), ProgramEnded);

        EXPECT_EQ(fp.power.calls, c.power);
        EXPECT_FALSE(app.ShutForm);
        EXPECT_EQ(fp.store.writes, QStringList{"SaveSettings"});
        // The answer by button leaves the pending flag, which no longer matters.
        EXPECT_TRUE(app.ConfirmPending);
        fp.power.onCall = nullptr;
        app.MainForm->show();
    }
}

} // namespace
