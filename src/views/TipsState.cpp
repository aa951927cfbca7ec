#include "views/TipsState.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

QStringList hotKeyModifiers()
{
    return {u"⌃"_s, u"⌥"_s};
}

QString hotKeyHintWith(const QString &modifiers)
{
    return modifiers + u" mezerník otevře knihovnu odkudkoli"_s;
}

} // namespace

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

QString TipsState::hotKeyHint() const
{
    return hotKeyHintWith(KeyNames::captions(hotKeyModifiers(), m_model.keyStyle()).join(u' '));
}

QString TipsState::spokenHotKeyHint() const
{
    return hotKeyHintWith(KeyNames::spoken(hotKeyModifiers(), m_model.keyStyle()));
}

} // namespace hmatnik
