#include "views/CardData.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

CardData::CardData(const Shortcut &shortcut, bool isFavorite, KeyStyle style)
    : id(shortcut.id)
    , title(shortcut.title)
    , detail(shortcut.detail)
    , keys(KeyNames::captions(shortcut.keys, style))
    , categoryName(Shortcut::rawValue(shortcut.category))
    , categorySymbol(Shortcut::symbol(shortcut.category))
    , favorite(isFavorite)
    , spoken((detail + u' ' + KeyNames::spoken(shortcut.keys, style)).trimmed())
{
}

} // namespace hmatnik
