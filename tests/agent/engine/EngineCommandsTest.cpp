#include "agent/engine/EngineCommands.h"

#include "agent/engine/EngineErrors.h"
#include "agent/engine/PopupMenu.h"

#include <QAction>
#include <gtest/gtest.h>

using namespace agent;
using namespace agent::engine;

namespace
{

QStringList phraseNames(const EngineCommands& commands)
{
    QStringList names;
    for (const VoicePhrase& phrase : commands.phrases())
        names << phrase.name + QLatin1Char('=') + phrase.voice;
    return names;
}

TEST(EngineCommandsTest, ListAndLookup)
{
    int changes = 0;
    EngineCommands commands([&changes] { ++changes; });
    commands.Add(QStringLiteral("Time"), QStringLiteral("What is the Time?"),
                 QStringLiteral("What is the time"), true, true);
    commands.Add(QStringLiteral("Yes"), QStringLiteral("Yes"), QStringLiteral("(Yes)"), false,
                 false);
    commands.Add(QStringLiteral(" "), QStringLiteral(" "), QStringLiteral(" "), true, true);
    EXPECT_EQ(commands.Count(), 3);
    EXPECT_EQ(commands.At(1).Name(), QStringLiteral("Yes"));
    EXPECT_EQ(commands.Command(QStringLiteral("Time")).Caption(),
              QStringLiteral("What is the Time?"));
    EXPECT_EQ(phraseNames(commands), QStringList{QStringLiteral("Time=What is the time")})
        << "disabled entries and blank voices are not listened for";

    const int before = changes;
    commands.Command(QStringLiteral("Yes")).setEnabled(true);
    commands.Command(QStringLiteral("Time")).setVoice(QStringLiteral("(time | clock)"));
    commands.Command(QStringLiteral("Time")).setCaption(QStringLiteral("Clock"));
    commands.Command(QStringLiteral("Time")).setVisible(false);
    EXPECT_EQ(changes, before + 2) << "only voice and enabled changes reach the recogniser";
    EXPECT_EQ(phraseNames(commands),
              (QStringList{QStringLiteral("Time=(time | clock)"), QStringLiteral("Yes=(Yes)")}));

    commands.Add(QStringLiteral("Yes"), QStringLiteral("Yes!"), QStringLiteral("(Yes)"), false,
                 false);
    EXPECT_EQ(commands.Count(), 3) << "an Add of a name in use replaces that entry";
    EXPECT_EQ(commands.At(1).Caption(), QStringLiteral("Yes!"));
    EXPECT_EQ(phraseNames(commands), QStringList{QStringLiteral("Time=(time | clock)")});

    commands.RemoveAll();
    EXPECT_EQ(commands.Count(), 0);
    EXPECT_TRUE(commands.phrases().empty());
}

TEST(EngineCommandsTest, UnknownNamesAndPositionsThrow)
{
    EngineCommands commands([] {});
    commands.Add(QStringLiteral("Time"), {}, {}, true, true);
    const auto expectError = [](const std::function<void()>& call, std::int32_t number) {
        try {
            call();
            ADD_FAILURE() << "no error";
        } catch (const platform::RuntimeError& error) {
            EXPECT_EQ(error.Number, number);
            EXPECT_EQ(error.Source, QStringLiteral("Agent.Control.1"));
            EXPECT_FALSE(error.Description.isEmpty());
        }
    };
    expectError([&] { commands.Command(QStringLiteral("time")); }, errors::CommandNotFound);
    expectError([&] { commands.Command(QStringLiteral("Date")); }, errors::CommandNotFound);
    expectError([&] { commands.At(1); }, errors::CommandNotFound);
    expectError([&] { commands.At(-1); }, errors::CommandNotFound);
}

QStringList menuTexts(const QMenu& menu)
{
    QStringList texts;
    for (const QAction* action : menu.actions())
        texts << (action->isSeparator() ? QStringLiteral("----")
                                        : action->text() + (action->isEnabled() ? "" : " (grey)"));
    return texts;
}

TEST(EngineCommandsTest, PopupMenuEntries)
{
    EngineCommands commands([] {});
    commands.Add(QStringLiteral("Clip"), QStringLiteral("Read From Clip Board"), {}, true, true);
    commands.Add(QStringLiteral("Notes"), QStringLiteral("Notes && Reminders"), {}, false, true);
    commands.Add(QStringLiteral("Yes"), QStringLiteral("Yes"), {}, true, false);
    commands.Add(QStringLiteral(" "), QStringLiteral(" "), {}, false, true);
    commands.Add(QStringLiteral(" 1"), QStringLiteral("Editor"), {}, true, true);

    struct Case {
        const char* name;
        bool groupVisible;
        QStringList expected;
    };
    const std::vector<Case> cases = {
        {"visible group",
         true,
         {"Read From Clip Board", "Notes && Reminders (grey)", "----", "Editor", "----", "Hide"}},
        {"hidden group", false, {"Hide"}},
    };
    for (const Case& test : cases) {
        commands.setVisible(test.groupVisible);
        QStringList picked;
        int hides = 0;
        const auto menu = makePopupMenu(
            popupEntries(commands), [&picked](const QString& name) { picked << name; },
            [&hides] { ++hides; });
        EXPECT_EQ(menuTexts(*menu), test.expected) << test.name;
        for (QAction* action : menu->actions())
            action->trigger();
        EXPECT_EQ(hides, 1) << test.name;
        if (test.groupVisible)
            EXPECT_EQ(picked, (QStringList{QStringLiteral("Clip"), QStringLiteral(" 1")}));
        else
            EXPECT_TRUE(picked.isEmpty());
    }
}

} // namespace
