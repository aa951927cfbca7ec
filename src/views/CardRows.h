#pragma once

#include "views/CardData.h"

#include <QAbstractListModel>
#include <QtQmlIntegration>

#include <functional>

namespace hmatnik {

/// Cards arranged in rows of equally many, for a view that creates only the rows in sight.
///
/// New contents are told as changed data of the rows that stay and as rows added or removed at the
/// end, so that a view keeps its items and only their texts change.
class CardRows : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by a screen's state")
    Q_PROPERTY(int columns READ columns WRITE setColumns NOTIFY columnsChanged)
    Q_PROPERTY(int cardCount READ cardCount NOTIFY cardCountChanged)

public:
    enum Role { CardsRole = Qt::UserRole + 1 };

    /// Gives the card at a position below the count last set.
    using CardSource = std::function<CardData(int)>;

    explicit CardRows(CardSource source, QObject *parent = nullptr);

    int columns() const { return m_columns; }
    /// At least 1.
    void setColumns(int columns);
    int cardCount() const { return m_cardCount; }

    /// Tells the view that there are now this many cards and that any may have changed.
    void reload(int cardCount);

    /// How many columns of at least the given width fit, with spacing between; never below 1.
    Q_INVOKABLE static int columnsFor(double width, double minimumColumn, double spacing);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void columnsChanged();
    void cardCountChanged();

private:
    static int rowsFor(int cards, int columns) { return (cards + columns - 1) / columns; }
    void rearrange(int cardCount, int columns);

    CardSource m_source;
    int m_columns = 1;
    int m_cardCount = 0;
};

} // namespace hmatnik
