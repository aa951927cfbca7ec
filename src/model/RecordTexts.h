#pragma once

#include "model/ByteSearch.h"

#include <QByteArray>

#include <cstddef>
#include <string>
#include <vector>

namespace hmatnik {

/// The texts of many records, kept for finding the records that contain some text. Texts are given
/// in UTF-8 and folded, so that equal bytes mean equal texts.
class RecordTexts
{
public:
    int size() const { return static_cast<int>(m_starts.size()); }

    /// The texts appended from now on belong to another record.
    void beginRecord() { m_starts.push_back(m_text.size()); }
    /// Adds a text to the record begun last.
    void append(const QByteArray &text);
    /// Forgets all records from a number on.
    void truncate(int size);

    /// Numbers, ascending, of the records of which some text contains the one sought, at least one
    /// byte long. A match never ends between a letter and a mark that belongs to it.
    std::vector<int> containing(const QByteArray &sought) const;

private:
    /// All texts one after another, each ended by a byte that UTF-8 never uses, so that one sweep
    /// searches everything and no match spans two texts.
    std::string m_text;
    /// Where each record's texts begin in m_text.
    std::vector<std::size_t> m_starts;
    /// How often each byte occurs in m_text; the search looks for a text's rarest ones.
    ByteSearch::Counts m_byteCounts{};
};

} // namespace hmatnik
