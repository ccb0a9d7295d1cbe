#include "agent/listen/PushToTalkKey.h"

#include <QGuiApplication>
#include <X11/Xlib.h>
#include <xcb/xcb.h>

namespace agent::listen
{

namespace
{

// A held key repeats every 30-50 ms; the release of a repeat comes directly before the
// next press.
constexpr int RepeatGapMs = 25;

// Caps Lock and Num Lock must not stop the key from working.
constexpr unsigned int LockCombinations[] = {0, LockMask, Mod2Mask, LockMask | Mod2Mask};

bool grabFailed = false;
int recordGrabError(Display*, XErrorEvent* error)
{
    grabFailed = grabFailed || error->error_code == BadAccess;
    return 0;
}

Display* x11Display()
{
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->display() : nullptr;
}

} // namespace

PushToTalkKey::PushToTalkKey(QObject* parent) : QObject(parent)
{
    releaseConfirm_.setSingleShot(true);
    releaseConfirm_.setInterval(RepeatGapMs);
    connect(&releaseConfirm_, &QTimer::timeout, this, [this] {
        down_ = false;
        emit released();
    });
}

PushToTalkKey::~PushToTalkKey()
{
    ungrab();
}

bool PushToTalkKey::grab(const QString& keyName)
{
    ungrab();
    Display* display = x11Display();
    if (!display)
        return false;
    const KeySym symbol = XStringToKeysym(keyName.toLatin1().constData());
    const KeyCode code = symbol == NoSymbol ? 0 : XKeysymToKeycode(display, symbol);
    if (code == 0)
        return false;
    const Window root = DefaultRootWindow(display);
    XSync(display, False);
    grabFailed = false;
    auto* previous = XSetErrorHandler(recordGrabError);
    for (unsigned int locks : LockCombinations)
        XGrabKey(display, code, locks, root, False, GrabModeAsync, GrabModeAsync);
    XSync(display, False);
    XSetErrorHandler(previous);
    if (grabFailed) {
        for (unsigned int locks : LockCombinations)
            XUngrabKey(display, code, locks, root);
        XFlush(display);
        return false;
    }
    keycode_ = code;
    qGuiApp->installNativeEventFilter(this);
    return true;
}

void PushToTalkKey::ungrab()
{
    if (!keycode_)
        return;
    if (Display* display = x11Display()) {
        for (unsigned int locks : LockCombinations)
            XUngrabKey(display, keycode_, locks, DefaultRootWindow(display));
        XFlush(display);
    }
    if (qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
    keycode_ = 0;
    releaseConfirm_.stop();
    if (down_) {
        down_ = false;
        emit released();
    }
}

bool PushToTalkKey::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (!keycode_ || eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const std::uint8_t type = event->response_type & ~0x80;
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    const auto* key = static_cast<const xcb_key_press_event_t*>(message);
    if (key->detail != keycode_)
        return false;
    if (type == XCB_KEY_PRESS)
        keyDown();
    else
        keyUp();
    return true;
}

void PushToTalkKey::keyDown()
{
    if (releaseConfirm_.isActive()) {
        releaseConfirm_.stop();
        return;
    }
    if (down_)
        return;
    down_ = true;
    emit pressed();
}

void PushToTalkKey::keyUp()
{
    if (down_)
        releaseConfirm_.start();
}

} // namespace agent::listen
