#include "FakeDesktop.h"
#include "FuzzTargets.h"
#include "Require.h"
#include "model/AppModel.h"
#include "model/ShortcutLibrary.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

namespace {

constexpr qsizetype maximumRecords = 16; // of which everything is asked, to stay fast

/// What is read can be written, and reads the same again.
void requireRoundTrip(const QList<Shortcut> &shortcuts)
{
    const QByteArray json = Shortcut::toJson(shortcuts);
    const auto again = Shortcut::fromJson(json);
    require(again.has_value(), "what we write we can read");
    require(*again == shortcuts, "shortcuts come back as they were");
    require(Shortcut::toJson(*again) == json, "the same shortcuts are written the same");
    for (qsizetype i = 0; i < shortcuts.size(); ++i)
        require(qHash(shortcuts[i], 7) == qHash(again->at(i), 7), "equal shortcuts hash alike");
}

void requireKeysOfText(const QString &text)
{
    const QStringList keys = Shortcut::keysFromText(text);
    for (const QString &key : keys)
        require(
            !key.isEmpty() && key == key.trimmed() && !key.contains(u'+'), "a key is one token");
    require(Shortcut::keysFromText(keys.join(u'+')) == keys, "keys read the same again");
}

void requireCanBeFound(AppModel &model, int position)
{
    const Shortcut &shortcut = model.pool().at(position);
    if (!shortcut.title.isValidUtf16())
        return; // nobody can type half a character
    model.setSearch(shortcut.title);
    const auto found = model.filteredPositions();
    require(std::is_sorted(found.begin(), found.end()), "what is found comes in order");
    require(std::binary_search(found.begin(), found.end(), position), "a title finds its shortcut");
    require(model.filtered().size() == int(found.size()), "positions and records agree");
    model.setSearch({});
}

void requireUsable(AppModel &model, const QList<Shortcut> &own)
{
    const int builtIn = int(ShortcutLibrary::all().size());
    require(model.customShortcuts() == own, "the model has the list that was stored");
    require(model.pool().size() == builtIn + int(own.size()), "the pool has each record once");
    require(model.contextual().size() <= 4, "at most four tips");
    const auto count = int(std::min(own.size(), maximumRecords));
    for (int i = 0; i < count; ++i)
        requireCanBeFound(model, builtIn + i);
    if (own.isEmpty())
        return;

    const Shortcut &first = own.front();
    const bool wasFavorite = model.favorites().contains(first.id);
    model.toggleFavorite(first);
    require(model.favorites().contains(first.id) != wasFavorite, "a star can be clicked");
    model.recordMouseAction(first.title);
    model.deleteCustom(first);
    require(!model.favorites().contains(first.id), "what is deleted is no favourite");
    const auto hasItsId = [&](const Shortcut &shortcut) {
        return shortcut.id == first.id;
    };
    const auto &left = model.customShortcuts();
    require(std::none_of(left.begin(), left.end(), hasItsId), "what is deleted is gone");
    require(
        left.size() == own.size() - std::count_if(own.begin(), own.end(), hasItsId),
        "nothing else is deleted");
    requireRoundTrip(left);
}

} // namespace

void fuzzShortcutList(const QByteArray &bytes)
{
    const auto shortcuts = Shortcut::fromJson(bytes);
    if (shortcuts) {
        requireRoundTrip(*shortcuts);
        for (qsizetype i = 0; i < std::min(shortcuts->size(), maximumRecords); ++i)
            requireKeysOfText(shortcuts->at(i).detail);
    }
    requireKeysOfText(QString::fromUtf8(bytes));

    FakeDesktop desktop;
    desktop.preferences->preset(u"customShortcuts"_s, bytes);
    AppModel model(desktop.desktop(), QLocale(QLocale::Czech));
    require(desktop.preferences->writes().isEmpty(), "starting writes nothing");
    requireUsable(model, shortcuts.value_or(QList<Shortcut>()));
}

} // namespace hmatnik::test
