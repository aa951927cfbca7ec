#include "views/CardRows.h"

#include <algorithm>
#include <cmath>

namespace hmatnik {

CardRows::CardRows(CardSource source, QObject *parent)
    : QAbstractListModel(parent)
    , m_source(std::move(source))
{
}

void CardRows::setColumns(int columns)
{
    columns = std::max(columns, 1);
    if (columns == m_columns)
        return;
    rearrange(m_cardCount, columns);
    Q_EMIT columnsChanged();
}

void CardRows::reload(int cardCount)
{
    const bool countChanged = cardCount != m_cardCount;
    rearrange(cardCount, m_columns);
    if (countChanged)
        Q_EMIT cardCountChanged();
}

int CardRows::columnsFor(double width, double minimumColumn, double spacing)
{
    const double columns = std::floor((width + spacing) / (minimumColumn + spacing));
    return columns < 1 ? 1 : static_cast<int>(columns);
}

int CardRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rowsFor(m_cardCount, m_columns);
}

QVariant CardRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != CardsRole)
        return {};
    QVariantList cards;
    const int first = index.row() * m_columns;
    const int last = std::min(first + m_columns, m_cardCount);
    for (int card = first; card < last; ++card)
        cards.append(QVariant::fromValue(m_source(card)));
    return cards;
}

QHash<int, QByteArray> CardRows::roleNames() const
{
    return {{CardsRole, "cards"}};
}

void CardRows::rearrange(int cardCount, int columns)
{
    const int before = rowsFor(m_cardCount, m_columns);
    const int after = rowsFor(cardCount, columns);
    if (after < before)
        beginRemoveRows({}, after, before - 1);
    else if (after > before)
        beginInsertRows({}, before, after - 1);
    m_cardCount = cardCount;
    m_columns = columns;
    if (after < before)
        endRemoveRows();
    else if (after > before)
        endInsertRows();
    if (const int kept = std::min(before, after); kept > 0)
        Q_EMIT dataChanged(index(0), index(kept - 1));
}

} // namespace hmatnik
