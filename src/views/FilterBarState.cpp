#include "views/FilterBarState.h"

#include "model/KeyNames.h"

namespace hmatnik {

FilterBarState::FilterBarState(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::modifierFiltersChanged, this, &FilterBarState::filtersChanged);
    connect(&model, &AppModel::keyStyleChanged, this, &FilterBarState::captionsChanged);
}

QStringList FilterBarState::captions() const
{
    QStringList captions;
    for (const ModifierFilter filter : allModifierFilters)
        captions.append(KeyNames::caption(rawValue(filter), m_model.keyStyle()));
    return captions;
}

QStringList FilterBarState::names() const
{
    QStringList names;
    for (const ModifierFilter filter : allModifierFilters)
        names.append(KeyNames::spoken(rawValue(filter), m_model.keyStyle()));
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
