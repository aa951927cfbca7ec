#include "SampleShortcuts.h"

#include "model/ShortcutLibrary.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

QList<Shortcut> sampleShortcuts(qsizetype count)
{
    const QList<Shortcut> &library = ShortcutLibrary::all();
    QList<Shortcut> shortcuts;
    shortcuts.reserve(count);
    for (qsizetype i = 0; i < count; ++i) {
        const Shortcut &title = library.at(i % library.size());
        const Shortcut &detail = library.at((i * 7 + i / library.size()) % library.size());
        shortcuts.append({
            .id = u"menu-Aplikace-%1-%2"_s.arg(title.title).arg(i),
            .title = u"%1 %2"_s.arg(title.title).arg(i),
            .keys = detail.keys,
            .category = title.category,
            .apps = {u"Aplikace %1"_s.arg(i % 40)},
            .detail = u"%1 (%2)"_s.arg(detail.detail).arg(i),
        });
    }
    return shortcuts;
}

} // namespace hmatnik
