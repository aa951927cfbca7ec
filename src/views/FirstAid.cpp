#include "views/FirstAid.h"

#include "views/BuiltInCards.h"
#include "views/FirstAidSituation.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

QVariantList FirstAid::situations()
{
    QVariantList situations;
    for (const FirstAidSituation &situation : FirstAidSituation::all()) {
        situations.append(QVariantMap{
            {u"title"_s, situation.title},
            {u"symbol"_s, situation.symbol},
            {u"cards"_s, builtInCards(situation.shortcutIds)}});
    }
    return situations;
}

} // namespace hmatnik
