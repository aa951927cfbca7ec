#include "views/KeyCapture.h"

#include "views/KeyTranslation.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>

#include <optional>

namespace hmatnik {

namespace {

/// The flag that a modifier key sets; none for keys such as Caps Lock, which only change what
/// others write.
std::optional<Qt::KeyboardModifier> modifierOf(int key)
{
    switch (key) {
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
        return Qt::MetaModifier;
    case Qt::Key_AltGr:
    case Qt::Key_Mode_switch:
        return Qt::GroupSwitchModifier;
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return Qt::NoModifier;
    default:
        return std::nullopt;
    }
}

KeyPress::SpecialKey specialKey(int key)
{
    switch (key) {
    case Qt::Key_Backspace:
        return KeyPress::SpecialKey::backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return KeyPress::SpecialKey::tab;
    case Qt::Key_Left:
        return KeyPress::SpecialKey::leftArrow;
    case Qt::Key_Right:
        return KeyPress::SpecialKey::rightArrow;
    case Qt::Key_Up:
        return KeyPress::SpecialKey::upArrow;
    case Qt::Key_Down:
        return KeyPress::SpecialKey::downArrow;
    case Qt::Key_Escape:
        return KeyPress::SpecialKey::escape;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyPress::SpecialKey::enter;
    case Qt::Key_Delete:
        return KeyPress::SpecialKey::forwardDelete;
    case Qt::Key_Insert:
        return KeyPress::SpecialKey::insert;
    case Qt::Key_Home:
        return KeyPress::SpecialKey::home;
    case Qt::Key_End:
        return KeyPress::SpecialKey::end;
    case Qt::Key_PageUp:
        return KeyPress::SpecialKey::pageUp;
    case Qt::Key_PageDown:
        return KeyPress::SpecialKey::pageDown;
    default:
        return key >= Qt::Key_F1 && key <= Qt::Key_F35 ? KeyPress::SpecialKey::function
                                                       : KeyPress::SpecialKey::none;
    }
}

bool isUnknown(int key)
{
    return key == 0 || key == Qt::Key_unknown;
}

} // namespace

KeyCapture::KeyCapture(QQuickItem *parent)
    : QQuickItem(parent)
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
    m_rest.setSingleShot(true);
    m_rest.setTimerType(Qt::VeryCoarseTimer);
    m_rest.setInterval(longestRest);
    connect(&m_rest, &QTimer::timeout, this, [this] { m_grab.cancel(); });
    m_respite.setSingleShot(true);
    m_respite.setInterval(respite);
    connect(&m_respite, &QTimer::timeout, this, &KeyCapture::updateGrab);
    connect(this, &QQuickItem::activeFocusChanged, this, &KeyCapture::updateGrab);
    connect(this, &QQuickItem::visibleChanged, this, &KeyCapture::updateGrab);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &KeyCapture::updateGrab);
}

KeyCapture::~KeyCapture()
{
    // An item tells of its focus and visibility even as it goes, when we are no longer there.
    disconnect(this, nullptr, this, nullptr);
}

void KeyCapture::setModel(AppModel *model)
{
    if (m_model == model)
        return;
    m_model = model;
    updateGrab();
    Q_EMIT modelChanged();
}

void KeyCapture::setCompanion(QQuickItem *companion)
{
    if (m_companion == companion)
        return;
    m_companion = companion;
    Q_EMIT companionChanged();
}

void KeyCapture::setAllKeysNamed(bool named)
{
    if (m_allKeysNamed == named)
        return;
    m_allKeysNamed = named;
    Q_EMIT namingChanged();
}

void KeyCapture::setAsked(const QStringList &keys)
{
    if (m_asked == keys)
        return;
    m_asked = keys;
    Q_EMIT namingChanged();
}

void KeyCapture::componentComplete()
{
    QQuickItem::componentComplete();
    takeFocus();
}

void KeyCapture::takeFocus()
{
    // Once the click or key that led to this screen has been dealt with, which may place the focus
    // elsewhere. Under a sheet, that keeps it: it gives the focus on when it goes.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (isEnabled())
                forceActiveFocus(Qt::OtherFocusReason);
        },
        Qt::QueuedConnection);
}

void KeyCapture::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange)
        watch(value.window);
}

void KeyCapture::watch(QQuickWindow *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
    updateGrab();
}

bool KeyCapture::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && hasActiveFocus()) {
        const QPointF position = static_cast<QMouseEvent *>(event)->scenePosition();
        const auto holds = [&position](const QQuickItem *item) {
            return item && item->isVisible() && item->contains(item->mapFromScene(position));
        };
        if (!holds(this) && !holds(m_companion))
            leave();
    }
    return QQuickItem::eventFilter(watched, event);
}

bool KeyCapture::event(QEvent *event)
{
    // Told before a shortcut of the program acts: this key is wanted here.
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QQuickItem::event(event);
}

void KeyCapture::keyPressEvent(QKeyEvent *event)
{
    event->accept();
    if (event->isAutoRepeat())
        return;
    const auto modifier = modifierOf(event->key());
    const Qt::KeyboardModifiers others =
        event->modifiers() & ~(Qt::KeypadModifier | modifier.value_or(Qt::NoModifier));
    m_taps.press(event->key(), modifier.has_value(), others != Qt::NoModifier);
    m_keyForDesktop.reset();
    const KeyPress press = modifier ? KeyPress() : keyPress(*event);
    if (press.isForDesktop) {
        makeWayFor(*event);
        return;
    }
    // A pop-up of our own may have ended the grab without telling; every combination begins with
    // a modifier, which is the time to make sure.
    if (modifier && others == Qt::NoModifier)
        m_grab.cancel();
    updateGrab();
    if (modifier)
        return;
    // A key that switches layouts, say, is neither a modifier nor part of any combination.
    if (isUnknown(event->key()) && press.characters.isEmpty())
        return;
    Q_EMIT keysPressed(m_allKeysNamed ? keyTokens(press, m_asked) : keyTokens(press));
}

void KeyCapture::keyReleaseEvent(QKeyEvent *event)
{
    event->accept();
    if (event->isAutoRepeat())
        return;
    if (m_keyForDesktop && m_keyForDesktop->scanCode == event->nativeScanCode()) {
        m_model->desktop().keyboardGrab->passOn(
            m_keyForDesktop->scanCode, m_keyForDesktop->modifiers);
        m_keyForDesktop.reset();
    }
    if (m_taps.release(event->key(), event->timestamp()))
        moveOn();
}

void KeyCapture::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    forceActiveFocus(Qt::MouseFocusReason);
}

KeyPress KeyCapture::keyPress(const QKeyEvent &event) const
{
    KeyPress press;
    press.control = event.modifiers().testFlag(Qt::ControlModifier);
    press.option = event.modifiers().testFlag(Qt::AltModifier);
    press.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    press.command = event.modifiers().testFlag(Qt::MetaModifier);
    press.specialKey = specialKey(event.key());
    if (press.specialKey == KeyPress::SpecialKey::function)
        press.functionNumber = event.key() - Qt::Key_F1 + 1;
    platform::KeyboardLayout &layout = *m_model->desktop().keyboardLayout;
    if (layout.availability().available) {
        const platform::KeyCharacters characters =
            layout.characters(event.nativeScanCode(), event.nativeModifiers());
        press.characters = characters.plain;
        press.shiftedCharacters = characters.shifted;
        press.isForDesktop = characters.isForDesktop;
    } else if (event.key() > 0 && event.key() <= 0xffff) {
        // The best that the event alone can tell.
        press.characters = QChar(static_cast<char16_t>(event.key()));
    }
    return press;
}

bool KeyCapture::isInUse() const
{
    return m_model && m_window && hasActiveFocus() && isVisible() &&
           QGuiApplication::focusWindow() == m_window;
}

void KeyCapture::updateGrab()
{
    if (!isInUse()) {
        m_grab.cancel();
        m_clicksElsewhere.cancel();
        m_rest.stop();
        m_respite.stop();
        m_taps.reset();
        m_keyForDesktop.reset();
        return;
    }
    m_respite.stop();
    if (!m_grab)
        m_grab = m_model->desktop().keyboardGrab->grab(*m_window);
    if (!m_clicksElsewhere)
        m_clicksElsewhere =
            m_model->desktop().mouseMonitor->monitorLeftPresses([this](QPointF) { leave(); });
    m_rest.start();
}

/// The server has told nobody else of a key that came while we held the keyboard. So the keyboard
/// is let go of at once, which lets a held key repeat for the desktop, and a key that was only
/// tapped is passed on when it is up.
void KeyCapture::makeWayFor(const QKeyEvent &event)
{
    if (m_grab)
        m_keyForDesktop = Key{event.nativeScanCode(), event.nativeModifiers()};
    m_grab.cancel();
    m_rest.stop();
    m_respite.start();
}

void KeyCapture::leave()
{
    setFocus(false, Qt::MouseFocusReason);
}

void KeyCapture::moveOn()
{
    QQuickItem *next = nextItemInFocusChain();
    if (next && next != this)
        next->forceActiveFocus(Qt::TabFocusReason);
    else
        setFocus(false, Qt::TabFocusReason);
}

} // namespace hmatnik
