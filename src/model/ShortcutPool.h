#pragma once

#include "model/ByteSearch.h"
#include "model/ModifierFilter.h"
#include "model/Shortcut.h"
#include "model/TextFolding.h"

#include <QList>
#include <QLocale>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace hmatnik {

/// The built-in library followed by the person's own shortcuts, with each record's texts kept in
/// the folded form that searching needs. It caches no answer: only what depends on a record alone.
class ShortcutPool
{
public:
    /// Modifier filters as bits, one per filter.
    using ModifierMask = std::uint8_t;

    /// @param locale decides how case is folded.
    explicit ShortcutPool(const QLocale &locale = QLocale());

    /// Replaces the records that follow the library.
    void setCustomShortcuts(const QList<Shortcut> &shortcuts);

    int size() const { return static_cast<int>(m_records.size()); }
    const Shortcut &at(int position) const { return m_records.at(position); }
    /// All records in order.
    const QList<Shortcut> &records() const { return m_records; }

    /// Positions, ascending, of the records whose title, detail or keys (joined without
    /// separator) contain the text. Case is ignored, diacritics count: a match never ends between
    /// a letter and a mark that belongs to it. The empty text is contained in every record.
    std::vector<int> containing(const QString &text) const;

    /// The filters that the record at the position passes.
    ModifierMask modifiersAt(int position) const { return m_modifiers[std::size_t(position)]; }
    /// The bits of some filters together.
    static ModifierMask maskOf(const ModifierFilters &filters);

private:
    void append(const Shortcut &shortcut);
    void appendText(const QString &folded);
    /// Forgets all records from the position on.
    void truncate(int size);

    TextFolding m_folding;
    QList<Shortcut> m_records;
    std::vector<ModifierMask> m_modifiers;
    /// The folded texts of all records one after another in UTF-8, each text ended by a byte that
    /// UTF-8 never uses, so that one sweep searches everything and no match spans two texts.
    std::string m_text;
    /// Where each record's texts begin in m_text.
    std::vector<std::size_t> m_starts;
    /// How often each byte occurs in m_text; the search looks for a text's rarest ones.
    ByteSearch::Counts m_byteCounts{};
};

} // namespace hmatnik
