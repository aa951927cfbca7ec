#include "model/ShortcutPool.h"

#include "model/ShortcutLibrary.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

/// A combination as one writes it: pieces joined by a plus with no space, also for a piece of
/// several words. Who looks for keys may write "ctrl+s", "Ctrl + S" or "ctrl s".
QString asCombination(const QString &text)
{
    // Most of what people look for is one word; this is asked with every letter that they type.
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); }))
        return text;
    QString joined = text.simplified();
    joined.replace(" + "_L1, "+"_L1);
    joined.replace("+ "_L1, "+"_L1);
    joined.replace(" +"_L1, "+"_L1);
    joined.replace(u' ', u'+');
    return joined;
}

/// What is in either of two ascending lists.
std::vector<int> united(const std::vector<int> &some, const std::vector<int> &others)
{
    std::vector<int> both;
    both.reserve(some.size() + others.size());
    std::ranges::set_union(some, others, std::back_inserter(both));
    return both;
}

} // namespace

ShortcutPool::ShortcutPool(const QLocale &locale)
    : m_folding(locale)
{
    setLibrary(ShortcutLibrary::all());
}

void ShortcutPool::setLibrary(const QList<Shortcut> &library)
{
    const QList<Shortcut> own = m_records.sliced(m_librarySize);
    truncate(0);
    for (const Shortcut &shortcut : library + own)
        append(shortcut);
    m_librarySize = library.size();
}

void ShortcutPool::setKeyStyle(KeyStyle style)
{
    if (m_keyStyle == style)
        return;
    m_keyStyle = style;
    m_captions.truncate(0);
    for (const Shortcut &shortcut : m_records)
        appendCaptions(shortcut);
}

void ShortcutPool::setCustomShortcuts(const QList<Shortcut> &shortcuts)
{
    // Most changes add at the end, so what stands unchanged before stays.
    const auto own = m_records.cbegin() + m_librarySize;
    const auto firstDifference =
        std::mismatch(own, m_records.cend(), shortcuts.begin(), shortcuts.end());
    const auto firstNew = firstDifference.second;
    truncate(static_cast<int>(firstDifference.first - m_records.cbegin()));
    std::for_each(firstNew, shortcuts.end(), [this](const Shortcut &s) { append(s); });
}

std::vector<int> ShortcutPool::containing(const QString &text) const
{
    const QString folded = m_folding.withoutCase(text);
    if (folded.isEmpty()) {
        std::vector<int> positions(m_modifiers.size());
        std::iota(positions.begin(), positions.end(), 0);
        return positions;
    }
    std::vector<int> positions = m_texts.containing(folded.toUtf8());
    // A lone plus is the key of that name and not what stands between two captions.
    const bool hasName =
        std::any_of(folded.begin(), folded.end(), [](QChar c) { return c.isLetterOrNumber(); });
    if (m_keyStyle == KeyStyle::mac || !hasName)
        return positions;
    const QString combination = asCombination(folded);
    positions = united(positions, m_captions.containing(combination.toUtf8()));
    // A single letter is its own name. Names of several words stay whole at first.
    QStringList written;
    if (folded.size() > 1)
        written.append(folded);
    if (combination != folded)
        written.append(combination);
    QStringList searched{combination};
    for (const QString &text : std::as_const(written)) {
        const QStringList keys = KeyNames::tokensFromText(text, m_keyStyle);
        // A word that names no key, as most do; this is asked with every letter that is typed.
        if (keys == QStringList(text))
            continue;
        const QString drawn = onCaps(KeyNames::inDisplayOrder(keys));
        // A plus alone also stands between two captions.
        if (drawn.isEmpty() || drawn == "+"_L1 || searched.contains(drawn))
            continue;
        searched.append(drawn);
        positions = united(positions, m_captions.containing(drawn.toUtf8()));
    }
    return positions;
}

QString ShortcutPool::onCaps(const QStringList &keys) const
{
    return asCombination(m_folding.withoutCase(KeyNames::captions(keys, m_keyStyle).join(u'+')));
}

ShortcutPool::ModifierMask ShortcutPool::maskOf(const ModifierFilters &filters)
{
    ModifierMask mask = 0;
    for (const ModifierFilter filter : filters)
        mask |= ModifierMask(1U << unsigned(filter));
    return mask;
}

void ShortcutPool::append(const Shortcut &shortcut)
{
    ModifierFilters modifiers;
    for (const ModifierFilter filter : allModifierFilters) {
        if (shortcut.keys.contains(rawValue(filter)))
            modifiers.insert(filter);
    }
    m_modifiers.push_back(maskOf(modifiers));
    m_records.append(shortcut);
    m_texts.beginRecord();
    m_texts.append(m_folding.withoutCase(shortcut.title).toUtf8());
    m_texts.append(m_folding.withoutCase(shortcut.detail).toUtf8());
    m_texts.append(m_folding.withoutCase(shortcut.keys.join(QString())).toUtf8());
    appendCaptions(shortcut);
}

void ShortcutPool::appendCaptions(const Shortcut &shortcut)
{
    if (m_keyStyle == KeyStyle::mac)
        return;
    m_captions.beginRecord();
    const QString drawn = onCaps(shortcut.keys);
    m_captions.append(drawn.toUtf8());
    // What a person has typed can be in any order.
    if (const QString ordered = onCaps(KeyNames::inDisplayOrder(shortcut.keys)); ordered != drawn)
        m_captions.append(ordered.toUtf8());
}

void ShortcutPool::truncate(int size)
{
    m_texts.truncate(size);
    m_captions.truncate(size);
    m_modifiers.resize(std::size_t(size));
    m_records.resize(size);
}

} // namespace hmatnik
