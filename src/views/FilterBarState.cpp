#include "views/FilterBarState.h"

#include "views/KeyNames.h"

namespace hmatnik {

FilterBarState::FilterBarState(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::modifierFiltersChanged, this, &FilterBarState::filtersChanged);
}

QStringList FilterBarState::glyphs() const
{
    QStringList glyphs;
    for (const ModifierFilter filter : allModifierFilters)
        glyphs.append(rawValue(filter));
    return glyphs;
}

QStringList FilterBarState::names() const
{
    QStringList names;
    for (const ModifierFilter filter : allModifierFilters)
        names.append(KeyNames::spoken(rawValue(filter)));
    return names;
}

QList<bool> FilterBarState::selected() const
{
    QList<bool> selected;
    for (const ModifierFilter filter : allModifierFilters)
        selected.append(m_model.modifierFilters().contains(filter));
    return selected;
}

void FilterBarState::toggle(int pill)
{
    if (pill >= 0 && pill < static_cast<int>(allModifierFilters.size()))
        m_model.toggleModifier(allModifierFilters[static_cast<size_t>(pill)]);
}

void FilterBarState::clear()
{
    m_model.setModifierFilters({});
}

} // namespace hmatnik
