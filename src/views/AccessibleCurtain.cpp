#include "views/AccessibleCurtain.h"

#include "views/AccessibleItem.h"

#include <QAccessible>

namespace hmatnik {

namespace {

/// The curtain as assistive technologies see it: a group, empty while it is drawn.
class CurtainInterface final : public AccessibleItem
{
public:
    using AccessibleItem::AccessibleItem;

private:
    QList<QAccessibleInterface *> children() const override
    {
        return static_cast<const AccessibleCurtain &>(item()).isDrawn()
                   ? QList<QAccessibleInterface *>()
                   : AccessibleItem::children();
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
    AccessibleItem::collectBelow(curtain, children);
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
