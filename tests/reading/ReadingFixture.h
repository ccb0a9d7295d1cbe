#pragma once

#include "fakes/LoadedProgram.h"
#include "reading/ReadingControls.h"
#include "reading/ReadingEngine.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>

// The main window with a visible character "G" and no animation, and text files in a
// temporary folder.
struct ReadingFixture : fakes::LoadedProgram {
    ReadingFixture()
    {
        character().visible = true;
        app.AnimateRead = "0";
    }

    QString writeFile(const QByteArray& bytes, const QString& name = "text.txt")
    {
        const QString path = dir.filePath(name);
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes);
        return path;
    }

    // Picks the file in the open dialog of "Read Text File".
    void readFile(const QByteArray& bytes, const QString& name = "text.txt")
    {
        fp.dialogs.files.push_back(writeFile(bytes, name));
        mnuFileRead_Click(app);
    }

    // Speaks the first line of a file and leaves its request in progress.
    void readFirstLine(const QByteArray& bytes)
    {
        readFile(bytes);
        Timer2_Timer(app);
        fp.agent->lastRequest()->status = platform::AgentRequest::InProgress;
    }

    // The texts spoken, without the character tag in front.
    QStringList spoken() const
    {
        QStringList texts;
        for (const QString& line : fp.agent->spoken())
            texts << line.mid(QStringLiteral("\\chr=\"normal\"\\").size());
        return texts;
    }

    // Ticks until the reading stops or the limit is reached; returns the ticks run.
    int tickToEnd(int limit = 100000)
    {
        int ticks = 0;
        while (form().Timer2->isActive() && ticks < limit) {
            Timer2_Timer(app);
            ++ticks;
        }
        return ticks;
    }

    QTemporaryDir dir;
};
