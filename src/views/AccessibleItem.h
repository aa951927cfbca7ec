#pragma once

#include <QAccessibleObject>
#include <QList>
#include <QQuickItem>

namespace hmatnik {

/// An item as assistive technologies see it, for those of which the toolkit tells too little. Says
/// what QML's "Accessible" says of the item, where it is, and whether it can be used.
class AccessibleItem : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit AccessibleItem(QQuickItem *item);

    /// True if QML says something of the item, and not that it shall be passed over.
    static bool isKnown(const QQuickItem &item);
    /// True if QML says what kind of thing the item is.
    static bool hasRole(const QQuickItem &item);

    /// Adds the interface of an item; of one that is passed over, those of the items below it.
    static void collect(QQuickItem &item, QList<QAccessibleInterface *> &found);
    /// Does so for all items right below one.
    static void collectBelow(const QQuickItem &item, QList<QAccessibleInterface *> &found);

    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QWindow *window() const override;
    /// In units of the layout, as the toolkit's own interfaces tell it.
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text text) const override;

    void *interface_cast(QAccessible::InterfaceType type) override;
    /// Also of an item that can't be used, which then ignores them: to a client that asks for an
    /// action without a name the toolkit's bridge says that the item is not there.
    QStringList actionNames() const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &name) const override;

protected:
    QQuickItem &item() const;
    /// In the order in which they are read.
    virtual QList<QAccessibleInterface *> children() const;
};

} // namespace hmatnik
