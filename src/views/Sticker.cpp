#include "views/Sticker.h"

#include "views/BuiltInCards.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace hmatnik {

const QStringList &Sticker::shortcutIds()
{
    static const QStringList ids{
        u"copy"_s,       u"paste"_s,        u"undo"_s,        u"save"_s,        u"spotlight"_s,
        u"switch-app"_s, u"close-window"_s, u"force-quit"_s,  u"shot-full"_s,   u"shot-area"_s,
        u"shot-tools"_s, u"emoji"_s,        u"lock"_s,        u"quick-look"_s,  u"new-folder"_s,
        u"trash"_s,      u"dock-toggle"_s,  u"computer"_s,    u"home"_s,        u"icloud"_s,
        u"recents"_s,    u"go-folder"_s,    u"restore-tab"_s, u"minimize-all"_s};
    return ids;
}

QVariantList Sticker::cards() const
{
    return model() ? builtInCards(*model(), shortcutIds()) : QVariantList();
}

void Sticker::follow(AppModel &model)
{
    connect(&model, &AppModel::keyStyleChanged, this, &Sticker::changed);
    connect(&model, &AppModel::libraryChanged, this, &Sticker::changed);
}

} // namespace hmatnik
