#pragma once

#include "views/MenuTable.h"
#include "views/ViewsModule.h"

#include <QObject>
#include <QVariantList>
#include <QtQmlIntegration>

QT_BEGIN_NAMESPACE
class QQuickWindow;
QT_END_NAMESPACE

namespace hmatnik {

/// The menu bar of a window: hidden until Alt or F10, its key equivalents always at work.
class MenuBarState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(QVariantList menus READ menus NOTIFY menusChanged)
    Q_PROPERTY(QVariantList keyEquivalents READ keyEquivalents NOTIFY menusChanged)
    Q_PROPERTY(QVariantList unusable READ unusable NOTIFY unusableChanged)
    Q_PROPERTY(bool shown READ isShown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(bool exported READ isExported CONSTANT)

public:
    MenuBarState(QQuickWindow &window, const ShellActions &actions);

    void setMenu(const MenuTable &menu);

    /// Menus in order; each a map of "title" and "entries", an entry a map of "title", "sequence"
    /// (empty for none), "separator" and "action".
    QVariantList menus() const;
    /// The entries that have a key, in the same form.
    QVariantList keyEquivalents() const;

    /// Whether a command would do something now. If not, it is dimmed and trigger() ignores it.
    void setUsable(MenuAction action, bool usable);
    /// The actions that are not usable.
    const QVariantList &unusable() const { return m_unusable; }

    bool isShown() const { return m_shown; }
    void setShown(bool shown);

    /// True where the desktop shows the menus of programs in a place of its own.
    bool isExported() const { return m_exported; }

    /// Does what the entry says; editing commands go to the item with the keyboard.
    Q_INVOKABLE void trigger(int action);

Q_SIGNALS:
    void menusChanged();
    void unusableChanged();
    void shownChanged();
    void aboutRequested();

private:
    QQuickWindow &m_window;
    ShellActions m_actions;
    MenuTable m_menu;
    QVariantList m_unusable;
    bool m_shown = false;
    bool m_exported = false;
};

} // namespace hmatnik
