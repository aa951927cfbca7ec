#include "views/CardData.h"

#include "views/KeyNames.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

CardData::CardData(const Shortcut &shortcut, bool isFavorite)
    : id(shortcut.id)
    , title(shortcut.title)
    , detail(shortcut.detail)
    , keys(shortcut.keys)
    , categoryName(Shortcut::rawValue(shortcut.category))
    , categorySymbol(Shortcut::symbol(shortcut.category))
    , favorite(isFavorite)
    , spoken((detail + u' ' + KeyNames::spoken(keys)).trimmed())
{
}

} // namespace hmatnik
