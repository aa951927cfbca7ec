#include "model/ShortcutPool.h"

#include "model/ByteSearch.h"
#include "model/ShortcutLibrary.h"

#include <QChar>

#include <algorithm>
#include <string_view>

namespace hmatnik {

namespace {

constexpr char textEnd = '\xFF';

std::uint8_t byteAt(std::string_view text, std::size_t offset)
{
    return static_cast<std::uint8_t>(text[offset]);
}

/// The code point that begins at an offset of well-formed UTF-8.
char32_t codePointAt(const std::string &text, std::size_t offset)
{
    const auto tail = [&](std::size_t i) {
        return char32_t(byteAt(text, offset + i) & 0x3FU);
    };
    const char32_t lead = byteAt(text, offset);
    if (lead < 0xE0)
        return (lead & 0x1FU) << 6U | tail(1);
    if (lead < 0xF0)
        return (lead & 0x0FU) << 12U | tail(1) << 6U | tail(2);
    return (lead & 0x07U) << 18U | tail(1) << 12U | tail(2) << 6U | tail(3);
}

/// Whether a mark that belongs to the character before it stands at the offset.
bool isMarkAt(const std::string &text, std::size_t offset)
{
    // The first mark is U+0300, encoded as CC 80.
    const std::uint8_t lead = byteAt(text, offset);
    if (lead < 0xCC || lead == std::uint8_t(textEnd))
        return false;
    const char32_t codePoint = codePointAt(text, offset);
    // Variation selectors choose a glyph; they do not make another letter.
    return QChar::isMark(codePoint) && !(codePoint >= 0xFE00 && codePoint <= 0xFE0F);
}

} // namespace

ShortcutPool::ShortcutPool(const QLocale &locale)
    : m_folding(locale)
{
    for (const Shortcut &shortcut : ShortcutLibrary::all())
        append(shortcut);
}

void ShortcutPool::setCustomShortcuts(const QList<Shortcut> &shortcuts)
{
    // Most changes add at the end, so what stands unchanged before stays.
    const auto own = m_records.cbegin() + ShortcutLibrary::all().size();
    const auto firstDifference =
        std::mismatch(own, m_records.cend(), shortcuts.begin(), shortcuts.end());
    const auto firstNew = firstDifference.second;
    truncate(static_cast<int>(firstDifference.first - m_records.cbegin()));
    std::for_each(firstNew, shortcuts.end(), [this](const Shortcut &s) { append(s); });
}

std::vector<int> ShortcutPool::containing(const QString &text) const
{
    std::vector<int> positions;
    const QByteArray needle = m_folding.withoutCase(text).toUtf8();
    if (needle.isEmpty()) {
        positions.resize(m_starts.size());
        for (std::size_t i = 0; i < positions.size(); ++i)
            positions[i] = static_cast<int>(i);
        return positions;
    }

    const std::string_view sought(needle.constData(), std::size_t(needle.size()));
    const ByteSearch search(sought, m_byteCounts);
    if (m_byteCounts[byteAt(sought, search.rarest())] == 0)
        return positions;

    positions.reserve(std::min<std::size_t>(m_starts.size(), 64));
    std::size_t record = 0;
    std::size_t from = 0;
    while (true) {
        const std::size_t found = search.find(m_text, from);
        if (found == std::string_view::npos)
            break;
        if (isMarkAt(m_text, found + sought.size())) {
            from = found + 1;
            continue;
        }
        while (record + 1 < m_starts.size() && m_starts[record + 1] <= found)
            ++record;
        positions.push_back(static_cast<int>(record));
        if (record + 1 == m_starts.size())
            break;
        from = m_starts[record + 1];
    }
    return positions;
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
    m_starts.push_back(m_text.size());
    m_records.append(shortcut);
    appendText(m_folding.withoutCase(shortcut.title));
    appendText(m_folding.withoutCase(shortcut.detail));
    appendText(m_folding.withoutCase(shortcut.keys.join(QString())));
}

void ShortcutPool::appendText(const QString &folded)
{
    const QByteArray utf8 = folded.toUtf8();
    for (const char byte : utf8)
        ++m_byteCounts[std::uint8_t(byte)];
    m_text.append(utf8.constData(), std::size_t(utf8.size()));
    m_text.push_back(textEnd);
}

void ShortcutPool::truncate(int size)
{
    if (size == this->size())
        return;
    const std::size_t start = m_starts[std::size_t(size)];
    for (std::size_t i = start; i < m_text.size(); ++i) {
        if (m_text[i] != textEnd)
            --m_byteCounts[byteAt(m_text, i)];
    }
    m_text.resize(start);
    m_starts.resize(std::size_t(size));
    m_modifiers.resize(std::size_t(size));
    m_records.resize(size);
}

} // namespace hmatnik
