#include "views/Shuffle.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace hmatnik {

namespace {

/// A source of choices that goes through every sequence of them once, like an odometer. Each
/// sequence is equally probable if the choices are uniform, so a fair shuffle must reach every
/// order by equally many of them.
class EveryChoice
{
public:
    UniformInteger source()
    {
        m_next = 0;
        return [this](int bound) {
            if (m_next == m_choices.size())
                m_choices.push_back({bound, 0});
            EXPECT_EQ(m_choices[m_next].bound, bound);
            return m_choices[m_next++].value;
        };
    }

    /// Turns to the next sequence; false when all have been gone through.
    bool advance()
    {
        while (!m_choices.empty()) {
            if (++m_choices.back().value < m_choices.back().bound)
                return true;
            m_choices.pop_back();
        }
        return false;
    }

private:
    struct Choice
    {
        int bound;
        int value;
    };
    std::vector<Choice> m_choices;
    size_t m_next = 0;
};

} // namespace

TEST(Shuffle, ReachesEveryOrderEquallyOften)
{
    EveryChoice every;
    std::map<QList<int>, int> reached;
    do {
        QList<int> list{0, 1, 2, 3, 4};
        shuffle(list, every.source());
        ++reached[list];
    } while (every.advance());

    ASSERT_EQ(reached.size(), 120U);
    const int times = reached.begin()->second;
    for (const auto &[order, count] : reached)
        EXPECT_EQ(count, times);
}

TEST(Shuffle, LeavesShortListsAlone)
{
    const UniformInteger unused = [](int) {
        ADD_FAILURE() << "nothing to choose";
        return 0;
    };
    QList<int> none;
    shuffle(none, unused);
    EXPECT_TRUE(none.isEmpty());
    QList<int> one{7};
    shuffle(one, unused);
    EXPECT_EQ(one, QList<int>{7});
}

TEST(UniformInteger, OfTheSystemStaysBelowTheBoundAndReachesEveryValue)
{
    const UniformInteger random = systemUniformInteger();
    EXPECT_EQ(random(1), 0);
    std::map<int, int> reached;
    for (int i = 0; i < 6000; ++i)
        ++reached[random(6)];
    ASSERT_EQ(reached.size(), 6U);
    EXPECT_EQ(reached.begin()->first, 0);
    EXPECT_EQ(reached.rbegin()->first, 5);
    // Six standard deviations of the binomial distribution around 1000.
    for (const auto &[value, count] : reached)
        EXPECT_NEAR(count, 1000, 174) << value;
}

} // namespace hmatnik
