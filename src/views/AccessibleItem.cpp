#include "views/AccessibleItem.h"

#include <QQuickWindow>
#include <QVariant>

#include <algorithm>

namespace hmatnik {

namespace {

/// What QML's "Accessible" keeps for an item; null if QML says nothing of it.
const QObject *attached(const QQuickItem &item)
{
    const QObjectList &objects = item.children();
    const auto found = std::ranges::find_if(objects, [](const QObject *object) {
        return object->inherits("QQuickAccessibleAttached");
    });
    return found == objects.end() ? nullptr : *found;
}

} // namespace

AccessibleItem::AccessibleItem(QQuickItem *item)
    : QAccessibleObject(item)
{
}

bool AccessibleItem::isKnown(const QQuickItem &item)
{
    const QObject *said = attached(item);
    return said && !said->property("ignored").toBool();
}

bool AccessibleItem::hasRole(const QQuickItem &item)
{
    const QObject *said = attached(item);
    return said && said->property("role").toInt() != QAccessible::NoRole;
}

void AccessibleItem::collect(QQuickItem &item, QList<QAccessibleInterface *> &found)
{
    // The toolkit keeps the interface of an item that was asked for before it was to be ignored.
    const QObject *said = attached(item);
    QAccessibleInterface *accessible = said && said->property("ignored").toBool()
                                           ? nullptr
                                           : QAccessible::queryAccessibleInterface(&item);
    if (accessible)
        found.append(accessible);
    else
        collectBelow(item, found);
}

void AccessibleItem::collectBelow(const QQuickItem &item, QList<QAccessibleInterface *> &found)
{
    const QList<QQuickItem *> items = item.childItems();
    for (QQuickItem *below : items)
        collect(*below, found);
}

QAccessibleInterface *AccessibleItem::parent() const
{
    QQuickWindow *inside = item().window();
    if (!inside)
        return nullptr;
    for (QQuickItem *above = item().parentItem(); above && above != inside->contentItem();
         above = above->parentItem()) {
        if (QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(above))
            return accessible;
    }
    return QAccessible::queryAccessibleInterface(inside);
}

int AccessibleItem::childCount() const
{
    return static_cast<int>(children().size());
}

QAccessibleInterface *AccessibleItem::child(int index) const
{
    return children().value(index);
}

int AccessibleItem::indexOfChild(const QAccessibleInterface *child) const
{
    return static_cast<int>(children().indexOf(child));
}

QWindow *AccessibleItem::window() const
{
    return item().window();
}

QRect AccessibleItem::rect() const
{
    const QQuickWindow *inside = item().window();
    if (!inside)
        return {};
    const QRectF inWindow = item().mapRectToScene(item().boundingRect());
    return {inside->mapToGlobal(inWindow.topLeft().toPoint()), inWindow.size().toSize()};
}

QAccessible::Role AccessibleItem::role() const
{
    const QObject *said = attached(item());
    const int role = said ? said->property("role").toInt() : QAccessible::NoRole;
    return role == QAccessible::NoRole ? QAccessible::Client : static_cast<QAccessible::Role>(role);
}

QAccessible::State AccessibleItem::state() const
{
    QAccessible::State state;
    if (const QObject *said = attached(item())) {
        const auto says = [said](const char *name) {
            return said->property(name).toBool();
        };
        state.checkable = says("checkable");
        state.checked = says("checked");
        state.focusable = says("focusable");
        state.focused = says("focused");
        state.pressed = says("pressed");
        state.selectable = says("selectable");
        state.selected = says("selected");
    }
    state.disabled = !item().isEnabled();
    state.focusable = item().isEnabled() && (state.focusable || item().activeFocusOnTab());
    state.focused = state.focused || item().hasActiveFocus();
    const QQuickWindow *inside = item().window();
    state.invisible = !inside || !inside->isVisible() || !item().isVisible();
    state.offscreen = !inside || !QRect(inside->position(), inside->size()).intersects(rect());
    return state;
}

QString AccessibleItem::text(QAccessible::Text text) const
{
    const QObject *said = attached(item());
    if (!said)
        return {};
    switch (text) {
    case QAccessible::Name:
        return said->property("name").toString();
    case QAccessible::Description:
        return said->property("description").toString();
    default:
        return {};
    }
}

void *AccessibleItem::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : QAccessibleObject::interface_cast(type);
}

QStringList AccessibleItem::actionNames() const
{
    return state().focusable ? QStringList{setFocusAction()} : QStringList();
}

void AccessibleItem::doAction(const QString &name)
{
    if (name == setFocusAction() && state().focusable)
        item().forceActiveFocus(Qt::OtherFocusReason);
}

QStringList AccessibleItem::keyBindingsForAction(const QString &) const
{
    return {};
}

QQuickItem &AccessibleItem::item() const
{
    return *static_cast<QQuickItem *>(object());
}

QList<QAccessibleInterface *> AccessibleItem::children() const
{
    QList<QAccessibleInterface *> found;
    collectBelow(item(), found);
    return found;
}

} // namespace hmatnik
