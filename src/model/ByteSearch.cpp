#include "model/ByteSearch.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace hmatnik {

namespace {

/// Whether some place among the first `blockSize` has one byte at `first` and the other at
/// `second`. Free of branches, so that compilers turn it into a few vector instructions.
constexpr std::size_t blockSize = 64;
bool blockHasPair(const char *first, char firstByte, const char *second, char secondByte)
{
    std::uint8_t any = 0;
    for (std::size_t i = 0; i < blockSize; ++i)
        any |= std::uint8_t(first[i] == firstByte) & std::uint8_t(second[i] == secondByte);
    return any != 0;
}

} // namespace

ByteSearch::ByteSearch(std::string_view sought, const Counts &counts)
    : m_sought(sought)
{
    const auto count = [&](std::size_t offset) {
        return counts[static_cast<std::uint8_t>(sought[offset])];
    };
    for (std::size_t i = 1; i < sought.size(); ++i) {
        if (count(i) < count(m_rarest))
            m_rarest = i;
    }
    if (m_rarest == 0 && sought.size() > 1)
        m_second = 1;
    for (std::size_t i = m_second + 1; i < sought.size(); ++i) {
        if (i != m_rarest && count(i) < count(m_second))
            m_second = i;
    }
}

std::size_t ByteSearch::find(std::string_view text, std::size_t from) const
{
    if (m_sought.size() == 1)
        return text.find(m_sought.front(), from);
    if (text.size() < m_sought.size())
        return std::string_view::npos;
    const char rarestByte = m_sought[m_rarest];
    const char secondByte = m_sought[m_second];
    // Places where the sought text could begin without running over the end.
    const std::size_t places = text.size() - m_sought.size() + 1;
    const char *const firsts = text.data() + m_rarest;
    const char *const seconds = text.data() + m_second;
    while (from < places) {
        // Most of the text are blocks without the pair of rare bytes; one sweep dismisses them.
        while (from + blockSize <= places &&
               !blockHasPair(firsts + from, rarestByte, seconds + from, secondByte))
            from += blockSize;
        const std::size_t end = std::min(from + blockSize, places);
        while (from < end) {
            const void *found = std::memchr(firsts + from, rarestByte, end - from);
            if (!found) {
                from = end;
                break;
            }
            from = std::size_t(static_cast<const char *>(found) - firsts);
            if (seconds[from] == secondByte && text.substr(from, m_sought.size()) == m_sought)
                return from;
            ++from;
        }
    }
    return std::string_view::npos;
}

} // namespace hmatnik
