#include "views/FirstAid.h"

#include "views/BuiltInCards.h"
#include "views/FirstAidSituation.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

QVariantList FirstAid::situations() const
{
    if (!model())
        return {};
    QVariantList situations;
    for (const FirstAidSituation &situation : FirstAidSituation::all()) {
        const QVariantList cards = builtInCards(*model(), situation.shortcutIds);
        // The desktop may have nothing that helps.
        if (cards.isEmpty())
            continue;
        situations.append(QVariantMap{
            {u"title"_s, situation.title}, {u"symbol"_s, situation.symbol}, {u"cards"_s, cards}});
    }
    return situations;
}

bool FirstAid::startupOfMacShown() const
{
    return model() && model()->libraryChoice() == LibraryChoice::mac;
}

void FirstAid::follow(AppModel &model)
{
    connect(&model, &AppModel::keyStyleChanged, this, &FirstAid::changed);
    connect(&model, &AppModel::libraryChanged, this, &FirstAid::changed);
}

} // namespace hmatnik
