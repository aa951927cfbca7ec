#include "views/AccessibleControls.h"

#include "views/AccessibleItem.h"

#include <QAccessible>

#include <algorithm>

namespace hmatnik {

namespace {

void announceUsability(QQuickItem *button)
{
    if (!QAccessible::isActive())
        return;
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(button, changed);
    QAccessible::updateAccessibility(&event);
}

class AccessibleButton final : public AccessibleItem
{
public:
    explicit AccessibleButton(QQuickItem *button)
        : AccessibleItem(button)
    {
        QObject::connect(
            button, &QQuickItem::enabledChanged, button, [button] { announceUsability(button); });
    }

    /// The first one is what the button is there for: clients that know nothing of it take that.
    QStringList actionNames() const override
    {
        QStringList names = AccessibleItem::actionNames();
        names.prepend(pressAction());
        if (state().checkable)
            names.prepend(toggleAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name != pressAction() && name != toggleAction())
            AccessibleItem::doAction(name);
        else if (item().isEnabled())
            QMetaObject::invokeMethod(&item(), "clicked");
    }
};

/// A list of the toolkit keeps its rows in the order in which it has made or reused them.
class AccessibleList final : public AccessibleItem
{
public:
    using AccessibleItem::AccessibleItem;

private:
    QList<QAccessibleInterface *> children() const override
    {
        QList<QAccessibleInterface *> found;
        const QList<QQuickItem *> parts = item().childItems();
        const auto *content = item().property("contentItem").value<QQuickItem *>();
        for (QQuickItem *part : parts) {
            if (part == content)
                collectRows(*content, found);
            else
                collect(*part, found);
        }
        return found;
    }

    static void collectRows(const QQuickItem &content, QList<QAccessibleInterface *> &found)
    {
        QList<QQuickItem *> rows = content.childItems();
        // One that is kept for later stands for nothing.
        erase_if(rows, [](const QQuickItem *row) { return !row->isVisible(); });
        std::ranges::stable_sort(rows, {}, &QQuickItem::y);
        // Since Qt 6.8 a list makes an element of every row that comes into sight, also of one that
        // only holds others side by side.
        for (QQuickItem *row : rows) {
            if (hasRole(*row))
                collect(*row, found);
            else
                collectBelow(*row, found);
        }
    }
};

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item || !AccessibleItem::isKnown(*item))
        return nullptr;
    if (item->inherits("QQuickAbstractButton"))
        return new AccessibleButton(item);
    if (item->inherits("QQuickListView"))
        return new AccessibleList(item);
    return nullptr;
}

} // namespace

void improveAccessibleControls()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed);
}

} // namespace hmatnik
