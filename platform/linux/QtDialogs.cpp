#include "platform/linux/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

namespace platform
{

namespace
{

QMessageBox::Icon qtIcon(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::Warning:
        return QMessageBox::Warning;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Plain:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons qtButtons(BoxButtons buttons)
{
    switch (buttons) {
    case BoxButtons::OK:
        return QMessageBox::Ok;
    case BoxButtons::OKCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case BoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

BoxAnswer answerOf(int button)
{
    switch (button) {
    case QMessageBox::Cancel:
        return BoxAnswer::Cancel;
    case QMessageBox::Retry:
        return BoxAnswer::Retry;
    case QMessageBox::Yes:
        return BoxAnswer::Yes;
    case QMessageBox::No:
        return BoxAnswer::No;
    default:
        return BoxAnswer::OK;
    }
}

} // namespace

BoxAnswer QtDialogs::MsgBox(BoxIcon icon, BoxButtons buttons, const QString& title,
                            const QString& text)
{
    QMessageBox box(qtIcon(icon), title,
                    QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")),
                    qtButtons(buttons));
    // Closing the box by its frame answers Cancel where there is one, else OK.
    if (buttons == BoxButtons::OKCancel || buttons == BoxButtons::RetryCancel ||
        buttons == BoxButtons::YesNoCancel)
        box.setEscapeButton(QMessageBox::Cancel);
    return answerOf(box.exec());
}

void QtDialogs::Beep()
{
    QApplication::beep();
}

QString QtDialogs::qtFilter(const QString& filter)
{
    const QStringList parts = filter.split(QLatin1Char('|'));
    QStringList filters;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1].trimmed();
        patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        QString name = parts[i].trimmed();
        const auto paren = name.indexOf(QLatin1Char('('));
        if (paren > 0)
            name = name.left(paren).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(name, patterns);
    }
    return filters.join(QStringLiteral(";;"));
}

QString QtDialogs::OpenFile(const OpenFileRequest& request)
{
    QString start = request.initialDir;
    if (!request.fileName.isEmpty())
        start = request.initialDir.isEmpty()
                    ? request.fileName
                    : request.initialDir + QLatin1Char('/') + request.fileName;
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), request.title, start,
                                        qtFilter(request.filter));
}

} // namespace platform
