#include "views/AccessibleCurtain.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickWindow>

#include <algorithm>

namespace hmatnik {

namespace {

/// True if the item asks to be passed over. The toolkit keeps the interface of an item that was
/// asked for before its "Accessible.ignored" was set.
bool isIgnored(const QQuickItem &item)
{
    const QObjectList &attached = item.children();
    return std::ranges::any_of(attached, [](const QObject *object) {
        return object->inherits("QQuickAccessibleAttached") && object->property("ignored").toBool();
    });
}

/// The items below one that have an accessible interface, other items passed through.
void collectAccessible(const QQuickItem &item, QList<QAccessibleInterface *> &found)
{
    const QList<QQuickItem *> children = item.childItems();
    for (QQuickItem *child : children) {
        QAccessibleInterface *accessible =
            isIgnored(*child) ? nullptr : QAccessible::queryAccessibleInterface(child);
        if (accessible)
            found.append(accessible);
        else
            collectAccessible(*child, found);
    }
}

/// The curtain as assistive technologies see it: a group, empty while it is drawn.
class CurtainInterface final : public QAccessibleObject
{
public:
    explicit CurtainInterface(AccessibleCurtain *curtain)
        : QAccessibleObject(curtain)
    {
    }

    QAccessibleInterface *parent() const override
    {
        QQuickWindow *window = curtain().window();
        if (!window)
            return nullptr;
        for (QQuickItem *above = curtain().parentItem(); above && above != window->contentItem();
             above = above->parentItem()) {
            if (QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(above))
                return accessible;
        }
        return QAccessible::queryAccessibleInterface(window);
    }

    int childCount() const override { return static_cast<int>(children().size()); }
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return static_cast<int>(children().indexOf(child));
    }

    QWindow *window() const override { return curtain().window(); }
    QRect rect() const override
    {
        const QQuickWindow *window = curtain().window();
        if (!window)
            return {};
        const QRectF inWindow = curtain().mapRectToScene(curtain().boundingRect());
        return {window->mapToGlobal(inWindow.topLeft().toPoint()), inWindow.size().toSize()};
    }
    QAccessible::Role role() const override { return QAccessible::Grouping; }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = !curtain().isVisible();
        return state;
    }
    QString text(QAccessible::Text) const override { return {}; }

private:
    const AccessibleCurtain &curtain() const
    {
        return *static_cast<const AccessibleCurtain *>(object());
    }

    QList<QAccessibleInterface *> children() const
    {
        QList<QAccessibleInterface *> found;
        if (!curtain().isDrawn())
            collectAccessible(curtain(), found);
        return found;
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *curtain = qobject_cast<AccessibleCurtain *>(object);
    return curtain ? new CurtainInterface(curtain) : nullptr;
}

/// Tells clients, which remember what they have seen, that the curtain's children came or went.
void announceChildren(AccessibleCurtain &curtain, QAccessible::Event change)
{
    if (!QAccessible::isActive())
        return;
    QList<QAccessibleInterface *> children;
    collectAccessible(curtain, children);
    for (QAccessibleInterface *child : children) {
        QAccessibleEvent event(child, change);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace

AccessibleCurtain::AccessibleCurtain(QQuickItem *parent)
    : QQuickItem(parent)
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

void AccessibleCurtain::setDrawn(bool drawn)
{
    if (drawn == m_drawn)
        return;
    if (drawn)
        announceChildren(*this, QAccessible::ObjectDestroyed);
    m_drawn = drawn;
    if (!drawn)
        announceChildren(*this, QAccessible::ObjectCreated);
    Q_EMIT drawnChanged();
}

} // namespace hmatnik
