#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace hmatnik {

/// Looks for one text in others, byte by byte. Made for many searches in one long text: it knows
/// how often each byte occurs there and looks for the two that are rarest.
class ByteSearch
{
public:
    /// How often each byte occurs in the texts that are to be searched. The answer does not depend
    /// on them, only how soon it comes.
    using Counts = std::array<std::size_t, 256>;

    /// @param sought at least one byte; outlives this object.
    ByteSearch(std::string_view sought, const Counts &counts);

    /// Offset of the sought text's rarest byte; of equally rare ones, the first.
    std::size_t rarest() const { return m_rarest; }
    /// Offset of the rarest of its other bytes; the same as rarest() if there is none.
    std::size_t second() const { return m_second; }

    /// Where the sought text next begins at or after an offset; npos if nowhere.
    std::size_t find(std::string_view text, std::size_t from) const;

private:
    std::string_view m_sought;
    std::size_t m_rarest = 0;
    std::size_t m_second = 0;
};

} // namespace hmatnik
