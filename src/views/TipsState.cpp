#include "views/TipsState.h"

namespace hmatnik {

TipsState::TipsState(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::activeAppChanged, this, &TipsState::changed);
    connect(&model, &AppModel::customShortcutsChanged, this, &TipsState::changed);
    connect(&model, &AppModel::usageCountsChanged, this, &TipsState::changed);
    connect(&model, &AppModel::keyStyleChanged, this, &TipsState::changed);
    connect(&model, &AppModel::libraryChanged, this, &TipsState::changed);
}

QVariantList TipsState::tips() const
{
    QVariantList tips;
    for (const Shortcut &shortcut : m_model.contextual()) {
        const bool favorite = m_model.favorites().contains(shortcut.id);
        tips.append(QVariant::fromValue(CardData(shortcut, favorite, m_model.keyStyle())));
    }
    return tips;
}

} // namespace hmatnik
