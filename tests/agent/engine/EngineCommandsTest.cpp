#include "agent/engine/EngineCommands.h"

#include "EngineTestSupport.h"
#include "agent/engine/EngineErrors.h"
#include "agent/engine/PopupMenu.h"

#include <QAction>
#include <QMenu>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;
using namespace agent::engine::testing;

QStringList phraseNames(const EngineCommands& commands)
{
    QStringList names;
    for (const VoicePhrase& phrase : commands.phrases())
        names << phrase.name + QLatin1Char('=') + phrase.voice;
    return names;
}

TEST(EngineCommandsTest, ListLookupAndUnknownNamesOrPositions)
{
    int changes = 0;
    EngineCommands commands([&changes] { ++changes; });
    commands.Add("Time", "What is the Time?", "What is the time", true, true);
    commands.Add("Yes", "Yes", "(Yes)", false, false);
    commands.Add(" ", " ", " ", true, true);
    EXPECT_EQ(commands.Count(), 3);
    EXPECT_EQ(commands.At(1).Name(), "Yes");
    EXPECT_EQ(commands.Command("Time").Caption(), "What is the Time?");
    EXPECT_EQ(phraseNames(commands), QStringList{"Time=What is the time"})
        << "disabled entries and blank voices are not listened for";
    const std::function<void()> unknown[] = {[&] { commands.Command("time"); },
                                             [&] { commands.Command("Date"); },
                                             [&] { commands.At(3); }, [&] { commands.At(-1); }};
    for (const auto& call : unknown) {
        const platform::RuntimeError error = errorOf(call);
        EXPECT_EQ(error.Number, errors::CommandNotFound);
        EXPECT_FALSE(error.Description.isEmpty());
    }

    const int before = changes;
    commands.Command("Yes").setEnabled(true);
    commands.Command("Time").setVoice("(time | clock)");
    commands.Command("Time").setCaption("Clock");
    commands.Command("Time").setVisible(false);
    EXPECT_EQ(changes, before + 2) << "only voice and enabled changes reach the recogniser";
    EXPECT_EQ(phraseNames(commands), (QStringList{"Time=(time | clock)", "Yes=(Yes)"}));

    commands.Add("Yes", "Yes!", "(Yes)", false, false);
    EXPECT_EQ(commands.Count(), 3) << "an Add of a name in use replaces that entry";
    EXPECT_EQ(commands.At(1).Caption(), "Yes!");
    EXPECT_EQ(phraseNames(commands), QStringList{"Time=(time | clock)"});

    commands.RemoveAll();
    EXPECT_EQ(commands.Count(), 0);
    EXPECT_TRUE(commands.phrases().empty());
}

TEST(EngineCommandsTest, PopupMenuEntries)
{
    EngineCommands commands([] {});
    commands.Add("Clip", "Read From Clip Board", {}, true, true);
    commands.Add("Notes", "Notes && Reminders", {}, false, true);
    commands.Add("Yes", "Yes", {}, true, false);
    commands.Add(" ", " ", {}, false, true);
    commands.Add(" 1", "Editor", {}, true, true);

    const std::pair<bool, QStringList> cases[] = {
        {true,
         {"Read From Clip Board", "Notes && Reminders (grey)", "----", "Editor", "----", "Hide"}},
        {false, {"Hide"}},
    };
    for (const auto& [groupVisible, expected] : cases) {
        commands.setVisible(groupVisible);
        QStringList texts, picked;
        const auto menu = makePopupMenu(
            popupEntries(commands), [&picked](const QString& name) { picked << name; },
            [&picked] { picked << u"(hide)"_qs; });
        // Each entry as text, "----" for a separator, " (grey)" after a disabled one; all picked.
        for (QAction* action : menu->actions()) {
            texts << (action->isSeparator()
                          ? u"----"_qs
                          : action->text() + (action->isEnabled() ? "" : " (grey)"));
            action->trigger();
        }
        EXPECT_EQ(texts, expected) << "group visible: " << groupVisible;
        EXPECT_EQ(picked, QStringList({"Clip", " 1", "(hide)"}).mid(groupVisible ? 0 : 2));
    }
}
