#include "views/LibraryState.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

LibraryState::LibraryState(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_rows([this](int index) { return card(index); })
{
    connect(&model, &AppModel::searchChanged, this, &LibraryState::restart);
    connect(&model, &AppModel::selectionChanged, this, &LibraryState::restart);
    connect(&model, &AppModel::modifierFiltersChanged, this, &LibraryState::restart);
    connect(&model, &AppModel::favoritesChanged, this, &LibraryState::reload);
    connect(&model, &AppModel::customShortcutsChanged, this, &LibraryState::reload);
    connect(&model, &AppModel::keyStyleChanged, this, &LibraryState::reload);
    connect(&model, &AppModel::libraryChanged, this, &LibraryState::restart);
    reload();
}

QString LibraryState::outcome() const
{
    const int count = m_rows.cardCount();
    if (count == 0)
        return u"Žádná odpovídající zkratka"_s;
    // Czech has a form for one, one for two to four, and one for more.
    const QString noun = count == 1 ? u"zkratka"_s : count < 5 ? u"zkratky"_s : u"zkratek"_s;
    return QString::number(count) + u' ' + noun;
}

void LibraryState::toggleFavorite(int card)
{
    if (card >= 0 && card < m_rows.cardCount())
        m_model.toggleFavorite(m_model.pool().at(m_positions[static_cast<size_t>(card)]));
}

void LibraryState::reload()
{
    m_positions = m_model.filteredPositions();
    m_rows.reload(static_cast<int>(m_positions.size()));
    Q_EMIT contentsChanged();
}

void LibraryState::restart()
{
    reload();
    Q_EMIT restarted();
}

CardData LibraryState::card(int index) const
{
    const Shortcut &shortcut = m_model.pool().at(m_positions[static_cast<size_t>(index)]);
    return {shortcut, m_model.favorites().contains(shortcut.id), m_model.keyStyle()};
}

} // namespace hmatnik
