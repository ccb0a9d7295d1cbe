#include "reading/RemoveIgnored.h"

#include "core/App.h"
#include "core/Conversions.h"
#include "core/frmMain.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>

namespace
{

// The event queue runs every so many characters, often enough to keep the window responsive.
constexpr qsizetype YieldEvery = 256;

QString IgnoredText(const QLineEdit& box)
{
    return Conversions::Trim(box.text());
}

} // namespace

QString RemoveIgnored(App& app, const QString& Text)
{
    const frmMain& f = *app.MainForm;
    if (!f.chkIgnore->isChecked())
        return Text;
    QString kept;
    kept.reserve(Text.size());
    QString ignored;
    QString ignored1;
    for (qsizetype i = 0; i < Text.size(); ++i) {
        if (i % YieldEvery == 0) {
            QCoreApplication::processEvents();
            // The boxes can change only while the queue runs.
            ignored = IgnoredText(*f.txtIgnore);
            ignored1 = IgnoredText(*f.txtIgnore1);
        }
        const QStringView c = QStringView(Text).mid(i, 1);
        if (c != ignored && c != ignored1)
            kept.append(c);
    }
    return kept;
}
