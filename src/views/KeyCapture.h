#pragma once

#include "model/AppModel.h"
#include "views/KeyPress.h"
#include "views/LoneModifierTaps.h"

#include <QPointer>
#include <QQuickItem>
#include <QStringList>
#include <QTimer>
#include <QtQmlIntegration>

#include <optional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace hmatnik {

/// The area that takes pressed combinations. It takes the focus as soon as it is shown and at every
/// click, unless something lies over it, and while it has it in the active window, the whole
/// keyboard is its own: also what the application menu, the window manager or the desktop would act
/// on. Keys that exist for the desktop alone, such as volume and Print, are passed on to it.
///
/// A click anywhere else leads out of it, and so does a lone modifier tapped twice.
class KeyCapture : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(hmatnik::AppModel *model READ model WRITE setModel NOTIFY modelChanged REQUIRED)
    Q_PROPERTY(QQuickItem *companion READ companion WRITE setCompanion NOTIFY companionChanged)
    Q_PROPERTY(bool allKeysNamed READ areAllKeysNamed WRITE setAllKeysNamed NOTIFY namingChanged)
    Q_PROPERTY(QStringList asked READ asked WRITE setAsked NOTIFY namingChanged)

public:
    explicit KeyCapture(QQuickItem *parent = nullptr);
    ~KeyCapture() override;

    /// Whose desktop tells what keys write and lends the keyboard.
    AppModel *model() const { return m_model; }
    void setModel(AppModel *model);
    /// An item that can be clicked without leaving the area; may be null.
    QQuickItem *companion() const { return m_companion; }
    void setCompanion(QQuickItem *companion);
    /// Whether presses are told with KeyNaming::all instead of KeyNaming::literal.
    bool areAllKeysNamed() const { return m_allKeysNamed; }
    void setAllKeysNamed(bool named);
    /// The combination that a press shall be read as where it can; heeded with all keys named.
    const QStringList &asked() const { return m_asked; }
    void setAsked(const QStringList &keys);

    /// Takes the focus, as when the area was shown.
    Q_INVOKABLE void takeFocus();
    /// Whether the whole keyboard is the area's own now.
    bool hasKeyboard() const { return static_cast<bool>(m_grab); }

    /// How long the keyboard is kept with no key pressed, in milliseconds. A screen locker needs
    /// the keyboard too, and starts when a person has been away for some minutes. The next key
    /// takes the keyboard again.
    static constexpr int longestRest = 120'000;
    /// How long the keyboard is free after a key for the desktop, in milliseconds: what it starts,
    /// a screen locker or a tool for pictures, may want the keyboard too. Another key ends the
    /// wait.
    static constexpr int respite = 3'000;

Q_SIGNALS:
    /// A combination was pressed; its tokens in the notation of shortcuts.
    void keysPressed(const QStringList &tokens);
    void modelChanged();
    void companionChanged();
    void namingChanged();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    struct Key
    {
        quint32 scanCode;
        quint32 modifiers;
    };

    KeyPress keyPress(const QKeyEvent &event) const;
    bool isInUse() const;
    void watch(QQuickWindow *window);
    void updateGrab();
    void makeWayFor(const QKeyEvent &event);
    void leave();
    void moveOn();

    AppModel *m_model = nullptr;
    QPointer<QQuickItem> m_companion;
    QPointer<QQuickWindow> m_window;
    bool m_allKeysNamed = false;
    QStringList m_asked;
    LoneModifierTaps m_taps;
    platform::Subscription m_grab;
    platform::Subscription m_clicksElsewhere;
    QTimer m_rest;
    QTimer m_respite;
    /// The key for the desktop that is down and that only we have been told of.
    std::optional<Key> m_keyForDesktop;
};

} // namespace hmatnik
