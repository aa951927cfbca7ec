#include "update/UpdateChecker.h"

#include <QRandomGenerator>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

enum class Order { Newer, Older, Same };

struct Pair
{
    QString a;
    QString b;
    Order order;
};

void PrintTo(const Pair &pair, std::ostream *out)
{
    *out << '"' << qUtf8Printable(pair.a) << "\" against \"" << qUtf8Printable(pair.b) << '"';
}

class VersionComparison : public testing::TestWithParam<Pair>
{
};

const Pair pairs[] = {
    // Plain versions.
    {u"1.0.1"_s, u"1.0"_s, Order::Newer},
    {u"1.0"_s, u"1.0"_s, Order::Same},
    {u"1.0.0"_s, u"1.0"_s, Order::Same},
    {u"1.2"_s, u"1.2.0"_s, Order::Same},
    {u"1.2"_s, u"1.2.0.0.0"_s, Order::Same},
    {u"1"_s, u"1.0.0.1"_s, Order::Older},
    {u"1.10"_s, u"1.9"_s, Order::Newer},
    {u"1.9"_s, u"1.10"_s, Order::Older},
    {u"2"_s, u"1.9.9"_s, Order::Newer},
    {u"1.9.9"_s, u"2"_s, Order::Older},
    {u"10.0"_s, u"9.99.99"_s, Order::Newer},
    {u"0.9"_s, u"1.0"_s, Order::Older},
    {u"0.0.1"_s, u"0"_s, Order::Newer},
    {u"1.2.3"_s, u"1.2.4"_s, Order::Older},
    {u"1.3.0"_s, u"1.2.99"_s, Order::Newer},
    {u"2024.11"_s, u"2024.2"_s, Order::Newer},
    // Leading zeros are decimal.
    {u"1.01"_s, u"1.1"_s, Order::Same},
    {u"1.010"_s, u"1.9"_s, Order::Newer},
    {u"1.08"_s, u"1.7"_s, Order::Newer},
    // Empty pieces are none.
    {u"1..2"_s, u"1.2"_s, Order::Same},
    {u".1.2"_s, u"1.2"_s, Order::Same},
    {u"1.2."_s, u"1.2"_s, Order::Same},
    {u"..1...2.."_s, u"1.2"_s, Order::Same},
    {u""_s, u""_s, Order::Same},
    {u"..."_s, u""_s, Order::Same},
    {u""_s, u"0.0"_s, Order::Same},
    {u""_s, u"1"_s, Order::Older},
    {u"0.0.1"_s, u""_s, Order::Newer},
    // What is no integer is left out, and the rest moves up.
    {u"1.x.3"_s, u"1.3"_s, Order::Same},
    {u"1.x.3"_s, u"1.0.3"_s, Order::Newer},
    {u"1.2-beta"_s, u"1.1"_s, Order::Older},
    {u"1.2-beta"_s, u"1"_s, Order::Same},
    {u"1.2.0-beta"_s, u"1.2"_s, Order::Same},
    {u"1.2.0-beta.5"_s, u"1.2.4"_s, Order::Newer},
    {u"v2.0"_s, u"1.0"_s, Order::Older},
    {u"v2.5"_s, u"4"_s, Order::Newer},
    {u"beta"_s, u"0.1"_s, Order::Older},
    {u"beta"_s, u"alfa"_s, Order::Same},
    {u"1. 2"_s, u"1"_s, Order::Same},
    {u" 2"_s, u"1"_s, Order::Older},
    {u"2 "_s, u"1"_s, Order::Older},
    {u"1.2\n"_s, u"1"_s, Order::Same},
    {u"1,5"_s, u"1"_s, Order::Older},
    {u"0x10"_s, u"1"_s, Order::Older},
    {u"1e3"_s, u"1"_s, Order::Older},
    {u"1_000"_s, u"1"_s, Order::Older},
    {u"\u0663"_s, u"1"_s, Order::Older}, // an Arabic-Indic three
    {u"\uFF13"_s, u"1"_s, Order::Older}, // a full-width three
    {u"\u00B2"_s, u"1"_s, Order::Older}, // a superscript two
    {u"1.\u00002"_s, u"1"_s, Order::Same},
    // Signs.
    {u"+1.+2"_s, u"1.2"_s, Order::Same},
    {u"1.-1"_s, u"1"_s, Order::Older},
    {u"1.-1"_s, u"1.-2"_s, Order::Newer},
    {u"-0"_s, u"0"_s, Order::Same},
    {u"+"_s, u"-"_s, Order::Same},
    {u"1.+"_s, u"1"_s, Order::Same},
    {u"+-2"_s, u"1"_s, Order::Older},
    {u"-+2"_s, u"0"_s, Order::Same},
    {u"++2"_s, u"1"_s, Order::Older},
    {u"--2"_s, u"0"_s, Order::Same},
    // The edges of 64 bits.
    {u"9223372036854775807"_s, u"9223372036854775806"_s, Order::Newer},
    {u"9223372036854775808"_s, u"1"_s, Order::Older},
    {u"9223372036854775808.5"_s, u"4"_s, Order::Newer},
    {u"-9223372036854775808"_s, u"-9223372036854775807"_s, Order::Older},
    {u"-9223372036854775809"_s, u"0"_s, Order::Same},
    {u"00000000000000000000000000000002"_s, u"1"_s, Order::Newer},
};
static_assert(std::size(pairs) >= 40);

/// Versions as they could come from a server: mostly numbers, some of them odd.
QString randomVersion(QRandomGenerator &random)
{
    static const QStringList odd{
        u""_s,
        u"x"_s,
        u"0-beta"_s,
        u"-1"_s,
        u"+2"_s,
        u"007"_s,
        u"9223372036854775807"_s,
        u"99999999999999999999"_s};
    QStringList pieces;
    const int count = random.bounded(6);
    for (int i = 0; i < count; ++i) {
        pieces.append(
            random.bounded(4) == 0 ? odd.at(random.bounded(int(odd.size())))
                                   : QString::number(random.bounded(4)));
    }
    return pieces.join(u'.');
}

} // namespace

TEST_P(VersionComparison, FollowsTheTable)
{
    const Pair &pair = GetParam();
    EXPECT_EQ(UpdateChecker::isNewer(pair.a, pair.b), pair.order == Order::Newer);
    EXPECT_EQ(UpdateChecker::isNewer(pair.b, pair.a), pair.order == Order::Older);
}

INSTANTIATE_TEST_SUITE_P(Pairs, VersionComparison, testing::ValuesIn(pairs));

TEST(VersionComparisonProperties, HoldForGeneratedVersions)
{
    QRandomGenerator random(20250101);
    int newer = 0;
    int same = 0;
    for (int i = 0; i < 20'000; ++i) {
        const QString a = randomVersion(random);
        const QString b = randomVersion(random);
        const QString c = randomVersion(random);
        SCOPED_TRACE(qUtf8Printable(u"\"%1\" \"%2\" \"%3\""_s.arg(a, b, c)));
        const bool ab = UpdateChecker::isNewer(a, b);
        const bool ba = UpdateChecker::isNewer(b, a);
        const bool bc = UpdateChecker::isNewer(b, c);
        ASSERT_FALSE(UpdateChecker::isNewer(a, a));
        ASSERT_FALSE(ab && ba);
        if (ab && bc) {
            ASSERT_TRUE(UpdateChecker::isNewer(a, c)) << "newer goes on from b to c";
        }
        if (!ab && !ba) {
            ASSERT_EQ(bc, UpdateChecker::isNewer(a, c)) << "the same version compares the same";
            ++same;
        }
        ASSERT_EQ(UpdateChecker::isNewer(QString(a + u".0"_s), b), ab)
            << "zeros at the end say nothing";
        ASSERT_EQ(UpdateChecker::isNewer(QString(u"x."_s + a), b), ab) << "words say nothing";
        ASSERT_TRUE(UpdateChecker::isNewer(QString(a + u".0.0.0.0.0.0.1"_s), a));
        newer += ab;
    }
    // The generator must not have tested the same thing all the time.
    EXPECT_GT(newer, 1'000);
    EXPECT_GT(same, 100);
}

} // namespace hmatnik
