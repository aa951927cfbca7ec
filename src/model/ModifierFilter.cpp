#include "model/ModifierFilter.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

QString rawValue(ModifierFilter filter)
{
    switch (filter) {
    case ModifierFilter::command:
        return u"⌘"_s;
    case ModifierFilter::option:
        return u"⌥"_s;
    case ModifierFilter::shift:
        return u"⇧"_s;
    case ModifierFilter::control:
        return u"⌃"_s;
    case ModifierFilter::fn:
        return u"Fn"_s;
    }
    Q_UNREACHABLE();
    return {};
}

} // namespace hmatnik
