#include "model/ByteSearch.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <utility>

namespace hmatnik::test {

namespace {

/// Memory that ends where nothing may be read any more.
class GuardedText
{
public:
    explicit GuardedText(std::size_t size)
        : m_size(size)
        , m_pageSize(std::size_t(::sysconf(_SC_PAGESIZE)))
        , m_pages((size + m_pageSize - 1) / m_pageSize * m_pageSize)
        , m_memory(::mmap(
              nullptr, m_pages + m_pageSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS,
              -1, 0))
    {
        if (m_memory == MAP_FAILED || ::mprotect(start() + m_pages, m_pageSize, PROT_NONE) != 0)
            std::abort();
    }
    ~GuardedText() { ::munmap(m_memory, m_pages + m_pageSize); }
    GuardedText(const GuardedText &) = delete;
    GuardedText &operator=(const GuardedText &) = delete;

    /// The text, filled with a byte and ended by another text.
    std::string_view filled(char byte, std::string_view ending = "") const
    {
        char *const text = start() + m_pages - m_size;
        std::memset(text, byte, m_size);
        std::memcpy(text + m_size - ending.size(), ending.data(), ending.size());
        return {text, m_size};
    }

private:
    char *start() const { return static_cast<char *>(m_memory); }

    std::size_t m_size;
    std::size_t m_pageSize;
    std::size_t m_pages;
    void *m_memory;
};

ByteSearch::Counts counted(std::string_view text)
{
    ByteSearch::Counts counts{};
    for (const char byte : text)
        ++counts[static_cast<unsigned char>(byte)];
    return counts;
}

std::pair<std::size_t, std::size_t> rareOnes(std::string_view sought, std::string_view text)
{
    const ByteSearch search(sought, counted(text));
    return {search.rarest(), search.second()};
}

using Offsets = std::pair<std::size_t, std::size_t>;

} // namespace

TEST(ByteSearch, ChoosesTheTwoRarestBytes)
{
    EXPECT_EQ(rareOnes("a", "abc"), (Offsets{0, 0}));
    EXPECT_EQ(rareOnes("abc", "abbccc"), (Offsets{0, 1}));
    EXPECT_EQ(rareOnes("cba", "abbccc"), (Offsets{2, 1}));
    EXPECT_EQ(rareOnes("cab", "abbccc"), (Offsets{1, 2}));
    EXPECT_EQ(rareOnes("acb", "abbccc"), (Offsets{0, 2}));
    EXPECT_EQ(rareOnes("bca", "abbccc"), (Offsets{2, 0}));
    EXPECT_EQ(rareOnes("dcba", "abbcccdddd"), (Offsets{3, 2}));
    EXPECT_EQ(rareOnes("bac", "abbccc"), (Offsets{1, 0}));
    // The first of equals; bytes above 127 count as well.
    EXPECT_EQ(rareOnes("abc", "abc"), (Offsets{0, 1}));
    EXPECT_EQ(rareOnes("cbac", "aabbcc"), (Offsets{0, 1}));
    EXPECT_EQ(rareOnes("a\xFF", "aa\xFF"), (Offsets{1, 0}));
}

TEST(ByteSearch, FindsWhatAPlainSearchFinds)
{
    // Lengths around a few blocks, matches at every place, and near misses all along.
    for (const std::string_view sought : {"x", "xy", "xyz", "xxy", "yxa", "aab", "bbbb"}) {
        for (std::size_t length = 0; length < 200; length += length < 70 ? 1 : 13) {
            for (std::size_t at = 0; at + sought.size() <= length; at += 3) {
                std::string text(length, 'a');
                for (std::size_t i = 0; i < length; i += 7)
                    text[i] = sought[i % sought.size()];
                text.replace(at, sought.size(), sought);
                const ByteSearch search(sought, counted(text));
                for (const std::size_t from : {std::size_t(0), at, at + 1, length, length + 100}) {
                    ASSERT_EQ(search.find(text, from), std::string_view(text).find(sought, from))
                        << '"' << sought << "\" in \"" << text << "\" from " << from;
                }
            }
        }
    }
}

TEST(ByteSearch, ReadsNothingBehindTheEnd)
{
    for (std::size_t length = 0; length < 200; ++length) {
        const GuardedText memory(length);
        for (const std::string_view sought : {"xy", "yx", "axy", "xya", "xxxxxxxxy"}) {
            for (const std::string_view counts : {"xyy", "xxy"}) {
                const ByteSearch search(sought, counted(counts));
                for (std::size_t from = 0; from <= length + 65; from += 7) {
                    ASSERT_EQ(search.find(memory.filled('a'), from), std::string_view::npos);
                    if (sought.size() > length || from > length)
                        continue;
                    ASSERT_EQ(
                        search.find(memory.filled('a', sought), from),
                        memory.filled('a', sought).find(sought, from))
                        << sought << ' ' << length << ' ' << from;
                    // All but the last byte of it stands at the end.
                    const auto beginning = sought.substr(0, sought.size() - 1);
                    ASSERT_EQ(
                        search.find(memory.filled('a', beginning), from),
                        memory.filled('a', beginning).find(sought, from));
                }
            }
        }
    }
}

} // namespace hmatnik::test
