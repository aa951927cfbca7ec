#include "model/RecordTexts.h"

#include <QChar>

#include <algorithm>
#include <cstdint>
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

void RecordTexts::append(const QByteArray &text)
{
    for (const char byte : text)
        ++m_byteCounts[std::uint8_t(byte)];
    m_text.append(text.constData(), std::size_t(text.size()));
    m_text.push_back(textEnd);
}

void RecordTexts::truncate(int size)
{
    if (size >= this->size())
        return;
    const std::size_t start = m_starts[std::size_t(size)];
    for (std::size_t i = start; i < m_text.size(); ++i) {
        if (m_text[i] != textEnd)
            --m_byteCounts[byteAt(m_text, i)];
    }
    m_text.resize(start);
    m_starts.resize(std::size_t(size));
}

std::vector<int> RecordTexts::containing(const QByteArray &text) const
{
    std::vector<int> positions;
    const std::string_view sought(text.constData(), std::size_t(text.size()));
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

} // namespace hmatnik
