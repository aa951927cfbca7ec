#include "views/FirstAidSituation.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

const QList<FirstAidSituation> &FirstAidSituation::all()
{
    static const QList<FirstAidSituation> situations{
        {u"Aplikace nereaguje"_s, u"exclamationmark.triangle.fill"_s, {u"force-quit"_s}},
        {u"Něco jsem omylem změnil"_s,
         u"arrow.uturn.backward.circle.fill"_s,
         {u"undo"_s, u"redo"_s}},
        {u"Nemohu najít soubor nebo aplikaci"_s,
         u"magnifyingglass.circle.fill"_s,
         {u"spotlight"_s, u"find"_s}},
        {u"Potřebuji zachytit obrazovku"_s,
         u"camera.viewfinder"_s,
         {u"shot-area"_s, u"shot-tools"_s}},
        {u"Chci se rychle vrátit k práci"_s,
         u"macwindow.on.rectangle"_s,
         {u"switch-app"_s, u"mission-control"_s, u"app-windows"_s}},
    };
    return situations;
}

} // namespace hmatnik
