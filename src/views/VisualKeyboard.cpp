#include "views/VisualKeyboard.h"

#include <QSet>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

/// Twice the distance of a key's middle from the middle of its row, negative to the left; rows are
/// centred above each other. Doubled to stay with whole numbers.
int middle(const QStringList &row, int column)
{
    int total = -VisualKeyboard::keySpacing;
    int before = 0;
    for (int i = 0; i < row.size(); ++i) {
        if (i == column)
            before = total + VisualKeyboard::keySpacing;
        total += VisualKeyboard::keySpacing + VisualKeyboard::width(row.at(i));
    }
    return 2 * before + VisualKeyboard::width(row.at(column)) - total;
}

} // namespace

const QString VisualKeyboard::spaceBar = u"Mezerník"_s;

VisualKeyboard::VisualKeyboard(QObject *parent)
    : ScreenState(parent)
    , m_cards([this](int index) {
        const Shortcut &shortcut = m_matches.at(index);
        return CardData(shortcut, model()->favorites().contains(shortcut.id), model()->keyStyle());
    })
{
}

void VisualKeyboard::follow(AppModel &model)
{
    connect(&model, &AppModel::searchChanged, this, &VisualKeyboard::updateFilters);
    connect(&model, &AppModel::selectionChanged, this, &VisualKeyboard::updateFilters);
    connect(&model, &AppModel::modifierFiltersChanged, this, &VisualKeyboard::updateFilters);
    connect(&model, &AppModel::favoritesChanged, this, &VisualKeyboard::reload);
    connect(&model, &AppModel::customShortcutsChanged, this, &VisualKeyboard::reload);
    connect(&model, &AppModel::keyStyleChanged, this, &VisualKeyboard::replaceKeys);
    connect(&model, &AppModel::libraryChanged, this, &VisualKeyboard::updateFilters);
    replaceKeys();
}

const QList<QStringList> &VisualKeyboard::rows(KeyStyle style)
{
    static const QList<QStringList> macRows{
        {u"Esc"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"0"_s,
         u"−"_s, u"="_s},
        {u"Tab"_s, u"Q"_s, u"W"_s, u"E"_s, u"R"_s, u"T"_s, u"Y"_s, u"U"_s, u"I"_s, u"O"_s, u"P"_s,
         u"["_s, u"]"_s},
        {u"⇧"_s, u"A"_s, u"S"_s, u"D"_s, u"F"_s, u"G"_s, u"H"_s, u"J"_s, u"K"_s, u"L"_s, u";"_s,
         u"'"_s},
        {u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⌘"_s, spaceBar, u"⌘"_s, u"⌥"_s, u"←"_s, u"↑"_s, u"↓"_s, u"→"_s},
    };
    static const QList<QStringList> pcRows{
        macRows[0],
        macRows[1],
        macRows[2] + QStringList{u"↩"_s},
        {u"⌃"_s, u"Fn"_s, u"⌘"_s, u"⌥"_s, spaceBar, u"AltGr"_s, u"⌃"_s, u"←"_s, u"↑"_s, u"↓"_s,
         u"→"_s},
    };
    return style == KeyStyle::pc ? pcRows : macRows;
}

int VisualKeyboard::width(const QString &label)
{
    return label == spaceBar ? spaceBarWidth : keyWidth;
}

QVariantList VisualKeyboard::keyRows() const
{
    QVariantList rows;
    for (const QStringList &row : VisualKeyboard::rows(keyStyle()))
        rows.append(QVariant(row));
    return rows;
}

void VisualKeyboard::replaceKeys()
{
    const QList<QStringList> &keys = rows(keyStyle());
    setCurrent(Position{});
    // Nobody could take back the choice of a key that is no longer there.
    if (m_selectedKey && std::ranges::none_of(keys, [this](const QStringList &row) {
            return row.contains(*m_selectedKey);
        }))
        m_selectedKey.reset();
    Q_EMIT keyRowsChanged();
    reload();
}

QString VisualKeyboard::caption(const QString &label) const
{
    return KeyNames::caption(label, keyStyle());
}

QString VisualKeyboard::description(const QString &label, bool available) const
{
    QStringList words;
    if (const QString spoken = KeyNames::spoken(label, keyStyle()); spoken != caption(label))
        words.append(spoken);
    if (available)
        words.append(u"dostupná s vybranými modifikátory"_s);
    return words.join(u", "_s);
}

void VisualKeyboard::click(const QString &label)
{
    if (m_selectedKey == label)
        m_selectedKey.reset();
    else
        m_selectedKey = label;
    updateMatches();
    Q_EMIT restarted();
}

void VisualKeyboard::toggleFavorite(int card)
{
    if (card >= 0 && card < m_matches.size())
        model()->toggleFavorite(m_matches.at(card));
}

VisualKeyboard::Position
VisualKeyboard::neighbour(Position from, Direction direction, KeyStyle style)
{
    const QStringList &row = rows(style).at(from.row);
    switch (direction) {
    case Direction::Left:
        return {from.row, std::max(0, from.column - 1)};
    case Direction::Right:
        return {from.row, std::min(static_cast<int>(row.size()) - 1, from.column + 1)};
    case Direction::Up:
    case Direction::Down:
        break;
    }
    const int target = from.row + (direction == Direction::Up ? -1 : 1);
    if (target < 0 || target >= rows(style).size())
        return from;
    const QStringList &targetRow = rows(style).at(target);
    const int here = middle(row, from.column);
    Position nearest{target, 0};
    for (int column = 1; column < targetRow.size(); ++column) {
        if (std::abs(middle(targetRow, column) - here) <
            std::abs(middle(targetRow, nearest.column) - here))
            nearest.column = column;
    }
    return nearest;
}

void VisualKeyboard::setCurrent(Position position)
{
    if (m_current == position)
        return;
    m_current = position;
    Q_EMIT currentChanged();
}

void VisualKeyboard::walk(Direction direction)
{
    setCurrent(neighbour(m_current, direction, keyStyle()));
}

void VisualKeyboard::updateFilters()
{
    reload();
    Q_EMIT restarted();
}

void VisualKeyboard::reload()
{
    QSet<QString> available;
    if (!model()->modifierFilters().empty()) {
        for (const int position : model()->filteredPositions()) {
            for (const QString &key : model()->pool().at(position).keys)
                available.insert(key);
        }
    }
    m_availableKeys = available.values();
    updateMatches();
}

void VisualKeyboard::updateMatches()
{
    m_matches.clear();
    for (const int position : model()->filteredPositions()) {
        if (m_matches.size() == mostMatches)
            break;
        const Shortcut &shortcut = model()->pool().at(position);
        if (!m_selectedKey || shortcut.keys.contains(*m_selectedKey))
            m_matches.append(shortcut);
    }
    m_cards.reload(static_cast<int>(m_matches.size()));
    Q_EMIT changed();
}

} // namespace hmatnik
