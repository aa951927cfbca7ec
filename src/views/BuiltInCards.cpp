#include "views/BuiltInCards.h"

#include "views/CardData.h"
#include "views/ShortcutsById.h"

namespace hmatnik {

QVariantList builtInCards(const AppModel &model, const QStringList &ids)
{
    QVariantList cards;
    for (const Shortcut &shortcut : shortcutsById(model.library(), ids))
        cards.append(QVariant::fromValue(CardData(shortcut, false, model.keyStyle())));
    return cards;
}

} // namespace hmatnik
