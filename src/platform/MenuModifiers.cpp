#include "platform/MenuModifiers.h"

namespace hmatnik::platform {

using namespace Qt::StringLiterals;

QStringList MenuModifiers::tokens(std::int64_t modifiers)
{
    QStringList tokens;
    if (modifiers & control)
        tokens.append(u"⌃"_s);
    if (modifiers & option)
        tokens.append(u"⌥"_s);
    if (modifiers & shift)
        tokens.append(u"⇧"_s);
    if (!(modifiers & noCommand))
        tokens.append(u"⌘"_s);
    return tokens;
}

} // namespace hmatnik::platform
