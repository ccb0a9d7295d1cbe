#include "agent/listen/ListeningTip.h"

#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QVBoxLayout>

namespace agent::listen
{

namespace
{
constexpr int ResultShownMs = 2500;
constexpr int ScreenMargin = 24;
} // namespace

ListeningTip::ListeningTip(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus),
      label_(new QLabel(this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Listening"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(10, 6, 10, 6);
    layout->addWidget(label_);
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, palette().color(QPalette::ToolTipBase));
    colours.setColor(QPalette::WindowText, palette().color(QPalette::ToolTipText));
    setPalette(colours);
    hideLater_.setSingleShot(true);
    hideLater_.setInterval(ResultShownMs);
    connect(&hideLater_, &QTimer::timeout, this, &QWidget::hide);
}

void ListeningTip::showListening()
{
    showText(tr("Listening..."), true);
}

void ListeningTip::showHeard(const QString& words)
{
    showText(words.isEmpty() ? tr("Not understood") : tr("Heard: \"%1\"").arg(words), false);
}

void ListeningTip::showNoMicrophone()
{
    showText(tr("No microphone found"), false);
}

QString ListeningTip::text() const
{
    return label_->text();
}

void ListeningTip::showText(const QString& text, bool stay)
{
    label_->setText(text);
    adjustSize();
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        move(area.right() - width() - ScreenMargin, area.bottom() - height() - ScreenMargin);
    }
    show();
    raise();
    if (stay)
        hideLater_.stop();
    else
        hideLater_.start();
}

} // namespace agent::listen
