#include "views/MenuBarState.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QQuickItem>
#include <QQuickWindow>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

QVariantMap toMap(const MenuEntry &entry)
{
    return {
        {u"title"_s, entry.title},
        {u"sequence"_s, entry.key.isNull() ? QString() : u"Ctrl+"_s + entry.key.toUpper()},
        {u"separator"_s, entry.action == MenuAction::Separator},
        {u"action"_s, static_cast<int>(entry.action)}};
}

bool globalMenuPresent()
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() &&
           bus.interface()->isServiceRegistered(u"com.canonical.AppMenu.Registrar"_s);
}

/// Text items have these as methods; anything else that has the keyboard has nothing to edit.
void edit(QQuickWindow &window, const char *method)
{
    QQuickItem *item = window.activeFocusItem();
    if (item &&
        item->metaObject()->indexOfMethod(QByteArray(QByteArray(method) + "()").constData()) >= 0)
        QMetaObject::invokeMethod(item, method);
}

} // namespace

MenuBarState::MenuBarState(QQuickWindow &window, const ShellActions &actions)
    : m_window(window)
    , m_actions(actions)
    , m_exported(globalMenuPresent())
{
}

void MenuBarState::setMenu(const MenuTable &menu)
{
    if (menu == m_menu)
        return;
    m_menu = menu;
    Q_EMIT menusChanged();
}

QVariantList MenuBarState::menus() const
{
    QVariantList menus;
    for (const MenuDefinition &menu : m_menu) {
        QVariantList entries;
        for (const MenuEntry &entry : menu.entries)
            entries.append(toMap(entry));
        menus.append(QVariantMap{{u"title"_s, menu.title}, {u"entries"_s, entries}});
    }
    return menus;
}

QVariantList MenuBarState::keyEquivalents() const
{
    QVariantList entries;
    for (const MenuDefinition &menu : m_menu) {
        for (const MenuEntry &entry : menu.entries) {
            if (!entry.key.isNull())
                entries.append(toMap(entry));
        }
    }
    return entries;
}

void MenuBarState::setUsable(MenuAction action, bool usable)
{
    const QVariant number = static_cast<int>(action);
    if (usable != m_unusable.contains(number))
        return;
    if (usable)
        m_unusable.removeAll(number);
    else
        m_unusable.append(number);
    Q_EMIT unusableChanged();
}

void MenuBarState::setShown(bool shown)
{
    if (shown == m_shown || m_exported)
        return;
    m_shown = shown;
    Q_EMIT shownChanged();
}

void MenuBarState::trigger(int action)
{
    if (m_unusable.contains(action))
        return;
    switch (static_cast<MenuAction>(action)) {
    case MenuAction::Separator:
        break;
    case MenuAction::About:
        Q_EMIT aboutRequested();
        break;
    case MenuAction::ImportSystemShortcuts:
        m_actions.importSystemShortcuts();
        break;
    case MenuAction::Quit:
        m_actions.quit();
        break;
    case MenuAction::Cut:
        edit(m_window, "cut");
        break;
    case MenuAction::Copy:
        edit(m_window, "copy");
        break;
    case MenuAction::Paste:
        edit(m_window, "paste");
        break;
    case MenuAction::SelectAll:
        edit(m_window, "selectAll");
        break;
    case MenuAction::Close:
        m_window.close();
        break;
    case MenuAction::Minimize:
        // A window that fills the screen does so again afterwards.
        m_window.setWindowStates(m_window.windowStates() | Qt::WindowMinimized);
        break;
    }
}

} // namespace hmatnik
