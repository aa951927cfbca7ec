#include "views/SidebarState.h"

#include <algorithm>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    QString title;
    QString symbol;
    SidebarSelection selection;
};

struct Section
{
    QString title;
    std::vector<Row> rows;
};

const std::vector<Section> &sectionTable()
{
    using Kind = SidebarSelection::Kind;
    static const std::vector<Section> table = [] {
        std::vector<Section> sections{
            {u"KNIHOVNA"_s,
             {{u"Všechny zkratky"_s, u"square.grid.2x2"_s, Kind::all},
              {u"Oblíbené"_s, u"star.fill"_s, Kind::favorites}}},
            {u"OBJEVUJ"_s,
             {{u"Vizuální klávesnice"_s, u"keyboard"_s, Kind::keyboard},
              {u"Samolepka"_s, u"rectangle.and.hand.point.up.left"_s, Kind::sticker},
              {u"První pomoc"_s, u"cross.case.fill"_s, Kind::firstAid},
              {u"Dnešní zkratka"_s, u"sun.max.fill"_s, Kind::daily},
              {u"Procvičování"_s, u"brain.head.profile"_s, Kind::practice}}},
            {u"KATEGORIE"_s, {}}};
        for (const Shortcut::Category category : Shortcut::allCategories)
            sections.back().rows.push_back(
                {Shortcut::rawValue(category), Shortcut::symbol(category),
                 SidebarSelection::ofCategory(category)});
        return sections;
    }();
    return table;
}

const std::vector<Row> &rowTable()
{
    static const std::vector<Row> table = [] {
        std::vector<Row> rows;
        for (const Section &section : sectionTable())
            rows.insert(rows.end(), section.rows.begin(), section.rows.end());
        return rows;
    }();
    return table;
}

} // namespace

SidebarState::SidebarState(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_screen(screen(model.selection()))
    , m_walkedRow(selectedRow())
{
    connect(&model, &AppModel::selectionChanged, this, &SidebarState::selectionMoved);
}

void SidebarState::selectionMoved()
{
    Q_EMIT selectionChanged();
    setWalkedRow(selectedRow());
    // Going from one category to another stays on the same screen.
    if (const Screen now = screen(); now != m_screen) {
        m_screen = now;
        Q_EMIT screenChanged();
    }
}

QVariantList SidebarState::sections() const
{
    QVariantList sections;
    int number = 0;
    for (const Section &section : sectionTable()) {
        QVariantList rows;
        for (const Row &row : section.rows) {
            rows.append(QVariantMap{
                {u"title"_s, row.title}, {u"symbol"_s, row.symbol}, {u"row"_s, number}});
            ++number;
        }
        sections.append(QVariantMap{{u"title"_s, section.title}, {u"rows"_s, rows}});
    }
    return sections;
}

int SidebarState::rowCount() const
{
    return static_cast<int>(rowTable().size());
}

int SidebarState::selectedRow() const
{
    const std::vector<Row> &rows = rowTable();
    const auto found =
        std::ranges::find(rows, m_model.selection(), [](const Row &row) { return row.selection; });
    return static_cast<int>(found - rows.begin());
}

void SidebarState::select(int row)
{
    if (row >= 0 && row < rowCount())
        m_model.setSelection(rowTable()[static_cast<size_t>(row)].selection);
}

void SidebarState::walk(int step)
{
    const int row = std::clamp(m_walkedRow + step, 0, rowCount() - 1);
    if (row == m_walkedRow)
        return;
    if (screen(rowTable()[static_cast<size_t>(row)].selection) == Screen::Practice)
        setWalkedRow(row);
    else
        select(row);
    // Back from a closed row to the selected one.
    setWalkedRow(row);
}

void SidebarState::setWalkedRow(int row)
{
    if (row == m_walkedRow)
        return;
    m_walkedRow = row;
    Q_EMIT walkedRowChanged();
}

QString SidebarState::pageTitle(const SidebarSelection &selection)
{
    using Kind = SidebarSelection::Kind;
    switch (selection.kind()) {
    case Kind::all:
        return u"Knihovna"_s;
    case Kind::favorites:
        return u"Oblíbené"_s;
    case Kind::category:
        return Shortcut::rawValue(selection.category());
    case Kind::keyboard:
        return u"Vizuální klávesnice"_s;
    case Kind::sticker:
        return u"Zkratky ze samolepky"_s;
    case Kind::firstAid:
        return u"První pomoc"_s;
    case Kind::daily:
        return u"Dnešní výuka"_s;
    case Kind::practice:
        return u"Procvičování"_s;
    }
    Q_UNREACHABLE();
}

SidebarState::Screen SidebarState::screen(const SidebarSelection &selection)
{
    using Kind = SidebarSelection::Kind;
    switch (selection.kind()) {
    case Kind::all:
    case Kind::favorites:
    case Kind::category:
        return Screen::Library;
    case Kind::keyboard:
        return Screen::Keyboard;
    case Kind::sticker:
        return Screen::Sticker;
    case Kind::firstAid:
        return Screen::FirstAid;
    case Kind::daily:
        return Screen::Daily;
    case Kind::practice:
        return Screen::Practice;
    }
    Q_UNREACHABLE();
}

} // namespace hmatnik
