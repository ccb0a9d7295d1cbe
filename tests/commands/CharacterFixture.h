#pragma once

#include "core/App.h"
#include "core/frmMain.h"
#include "fakes/FakePlatform.h"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

// The main window with the fake control and the character "G" loaded, as after start-up.
class CharacterFixture : public ::testing::Test
{
protected:
    CharacterFixture()
    {
        app.Agent1 = fp.platform.createAgent();
        app.MainForm = std::make_unique<frmMain>(app);
        app.Agent1->setEventSink(app.MainForm.get());
        fp.agent->characters.Load(QStringLiteral("G"), QStringLiteral("x.acs"));
        app.Character = &fp.agent->characters.Character(QStringLiteral("G"));
        fp.agent->calls.clear();
    }

    fakes::FakeCharacter& character() { return *fp.agent->character(); }

    // The calls since the last clear that start with prefix, in order.
    QStringList callsStartingWith(const QString& prefix) const
    {
        QStringList found;
        for (const QString& call : fp.agent->calls)
            if (call.startsWith(prefix))
                found << call;
        return found;
    }

    // The texts of the general error boxes, which name the place of the error.
    QStringList errorBoxes() const
    {
        QStringList texts;
        for (const fakes::Box& box : fp.dialogs.boxes)
            if (box.title == QLatin1String("Unknown Error"))
                texts << box.text;
        return texts;
    }

    fakes::FakePlatform fp;
    App app{fp.platform};
};
