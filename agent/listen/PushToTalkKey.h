#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QString>
#include <QTimer>

namespace agent::listen
{

// The listening key, grabbed on the X server's root window so that it works whichever
// program has the focus (on Wayland desktops through XWayland). pressed() when it goes
// down, released() when it comes up; the key's auto-repeat is swallowed.
class PushToTalkKey : public QObject, public QAbstractNativeEventFilter
{
    Q_OBJECT
public:
    explicit PushToTalkKey(QObject* parent = nullptr);
    ~PushToTalkKey() override;

    // An X key name such as "Scroll_Lock". False when there is no X server, the name is
    // unknown, or another program has grabbed that key.
    bool grab(const QString& keyName);
    void ungrab();
    bool isGrabbed() const { return keycode_ != 0; }
    unsigned int keycode() const { return keycode_; }
    bool isDown() const { return down_; }

    // Takes key events of the grabbed key: XCB_KEY_PRESS and XCB_KEY_RELEASE with their key
    // code in the event's detail.
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

signals:
    void pressed();
    void released();

private:
    void keyDown();
    void keyUp();

    unsigned int keycode_ = 0;
    bool down_ = false;
    // X repeats a held key as release/press pairs; a release counts only when no press
    // follows it at once.
    QTimer releaseConfirm_;
};

} // namespace agent::listen
