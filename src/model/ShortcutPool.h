#pragma once

#include "model/KeyNames.h"
#include "model/ModifierFilter.h"
#include "model/RecordTexts.h"
#include "model/Shortcut.h"
#include "model/TextFolding.h"

#include <QList>
#include <QLocale>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace hmatnik {

/// A built-in library followed by the person's own shortcuts, with each record's texts kept in
/// the folded form that searching needs. It caches no answer: only what depends on a record alone.
class ShortcutPool
{
public:
    /// Modifier filters as bits, one per filter.
    using ModifierMask = std::uint8_t;

    /// @param locale decides how case is folded.
    explicit ShortcutPool(const QLocale &locale = QLocale());

    /// Replaces the records that stand first; at first they are those of the Mac.
    void setLibrary(const QList<Shortcut> &library);
    /// Whose names of keys find a record beside its tokens; at first those of the Mac.
    void setKeyStyle(KeyStyle style);
    /// Replaces the records that follow the library.
    void setCustomShortcuts(const QList<Shortcut> &shortcuts);

    int size() const { return static_cast<int>(m_records.size()); }
    const Shortcut &at(int position) const { return m_records.at(position); }
    /// All records in order.
    const QList<Shortcut> &records() const { return m_records; }

    /// Positions, ascending, of the records whose title, detail or keys (joined without
    /// separator) contain the text. Case is ignored, diacritics count: a match never ends between
    /// a letter and a mark that belongs to it. The empty text is contained in every record.
    /// With the names of a PC's keys, what stands on the caps is found as well, as one writes a
    /// combination: "ctrl+s", "Ctrl + S" or "ctrl s". Modifiers may be named in any order, and keys
    /// as in KeyNames::tokensFromText(): "super+shift+s", "ctrl+pgup", "ctrl+-".
    std::vector<int> containing(const QString &text) const;

    /// The filters that the record at the position passes.
    ModifierMask modifiersAt(int position) const { return m_modifiers[std::size_t(position)]; }
    /// The bits of some filters together.
    static ModifierMask maskOf(const ModifierFilters &filters);

private:
    /// What stands on the caps of a combination, in the form that is searched.
    QString onCaps(const QStringList &keys) const;
    void append(const Shortcut &shortcut);
    void appendCaptions(const Shortcut &shortcut);
    /// Forgets all records from the position on.
    void truncate(int size);

    TextFolding m_folding;
    QList<Shortcut> m_records;
    /// How many records stand before the person's own.
    qsizetype m_librarySize = 0;
    std::vector<ModifierMask> m_modifiers;
    /// Title, detail and keys of each record.
    RecordTexts m_texts;
    /// The keys of each record once more, by what stands on their caps; empty where caps show the
    /// tokens themselves.
    RecordTexts m_captions;
    KeyStyle m_keyStyle = KeyStyle::mac;
};

} // namespace hmatnik
