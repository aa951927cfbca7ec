#include "views/VisualKeyboard.h"

#include <QHash>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

const QString spaceBar = u"Mezerník"_s;

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

VisualKeyboard::VisualKeyboard(QObject *parent)
    : ScreenState(parent)
{
}

void VisualKeyboard::follow(AppModel &model)
{
    connect(&model, &AppModel::searchChanged, this, &VisualKeyboard::update);
    connect(&model, &AppModel::selectionChanged, this, &VisualKeyboard::update);
    connect(&model, &AppModel::modifierFiltersChanged, this, &VisualKeyboard::update);
    connect(&model, &AppModel::favoritesChanged, this, &VisualKeyboard::update);
    connect(&model, &AppModel::customShortcutsChanged, this, &VisualKeyboard::update);
    update();
}

const QList<QStringList> &VisualKeyboard::rows()
{
    static const QList<QStringList> rows{
        {u"Esc"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u"0"_s,
         u"−"_s, u"="_s},
        {u"Tab"_s, u"Q"_s, u"W"_s, u"E"_s, u"R"_s, u"T"_s, u"Y"_s, u"U"_s, u"I"_s, u"O"_s, u"P"_s,
         u"["_s, u"]"_s},
        {u"⇧"_s, u"A"_s, u"S"_s, u"D"_s, u"F"_s, u"G"_s, u"H"_s, u"J"_s, u"K"_s, u"L"_s, u";"_s,
         u"'"_s},
        {u"Fn"_s, u"⌃"_s, u"⌥"_s, u"⌘"_s, spaceBar, u"⌘"_s, u"⌥"_s, u"←"_s, u"↑"_s, u"↓"_s, u"→"_s},
    };
    return rows;
}

int VisualKeyboard::width(const QString &label)
{
    return label == spaceBar ? spaceBarWidth : keyWidth;
}

QString VisualKeyboard::spokenName(const QString &label)
{
    static const QHash<QString, QString> names{
        {u"⌃"_s, u"Control"_s},
        {u"⌥"_s, u"Option"_s},
        {u"⇧"_s, u"Shift"_s},
        {u"⌘"_s, u"Command"_s},
        {u"Fn"_s, u"Function"_s},
        {u"←"_s, u"Šipka vlevo"_s},
        {u"→"_s, u"Šipka vpravo"_s},
        {u"↑"_s, u"Šipka nahoru"_s},
        {u"↓"_s, u"Šipka dolů"_s},
        {u"−"_s, u"Minus"_s},
        {u"="_s, u"Rovná se"_s},
        {u"["_s, u"Levá hranatá závorka"_s},
        {u"]"_s, u"Pravá hranatá závorka"_s},
        {u";"_s, u"Středník"_s},
        {u"'"_s, u"Apostrof"_s},
    };
    return names.value(label);
}

void VisualKeyboard::click(const QString &label)
{
    if (m_selectedKey == label)
        m_selectedKey.reset();
    else
        m_selectedKey = label;
    Q_EMIT changed();
}

QList<Shortcut> VisualKeyboard::matches() const
{
    if (!model())
        return {};
    QList<Shortcut> matches;
    for (const int position : model()->filteredPositions()) {
        if (matches.size() == mostMatches)
            break;
        const Shortcut &shortcut = model()->pool().at(position);
        if (!m_selectedKey || shortcut.keys.contains(*m_selectedKey))
            matches.append(shortcut);
    }
    return matches;
}

VisualKeyboard::Position VisualKeyboard::neighbour(Position from, Direction direction)
{
    const QStringList &row = rows().at(from.row);
    switch (direction) {
    case Direction::left:
        return {from.row, std::max(0, from.column - 1)};
    case Direction::right:
        return {from.row, std::min(static_cast<int>(row.size()) - 1, from.column + 1)};
    case Direction::up:
    case Direction::down:
        break;
    }
    const int target = from.row + (direction == Direction::up ? -1 : 1);
    if (target < 0 || target >= rows().size())
        return from;
    const QStringList &targetRow = rows().at(target);
    const int here = middle(row, from.column);
    Position nearest{target, 0};
    for (int column = 1; column < targetRow.size(); ++column) {
        if (std::abs(middle(targetRow, column) - here) <
            std::abs(middle(targetRow, nearest.column) - here))
            nearest.column = column;
    }
    return nearest;
}

void VisualKeyboard::update()
{
    m_availableKeys.clear();
    if (!model()->modifierFilters().empty()) {
        for (const int position : model()->filteredPositions()) {
            for (const QString &key : model()->pool().at(position).keys)
                m_availableKeys.insert(key);
        }
    }
    Q_EMIT changed();
}

} // namespace hmatnik
