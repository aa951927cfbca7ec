#include "views/CardRows.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

struct CardRowsTest : testing::Test
{
    CardRows rows{[](int index) {
        CardData card;
        card.id = QString::number(index);
        return card;
    }};
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList row(int index)
    {
        QStringList ids;
        for (const QVariant &card : rows.data(rows.index(index), CardRows::CardsRole).toList())
            ids.append(card.value<CardData>().id);
        return ids;
    }
};

} // namespace

TEST_F(CardRowsTest, asManyColumnsAsFit)
{
    EXPECT_EQ(CardRows::columnsFor(806, 250, 14), 3);
    EXPECT_EQ(CardRows::columnsFor(778, 250, 14), 3);
    EXPECT_EQ(CardRows::columnsFor(777.9, 250, 14), 2);
    EXPECT_EQ(CardRows::columnsFor(250, 250, 14), 1);
}

TEST_F(CardRowsTest, oneColumnHoweverNarrow)
{
    EXPECT_EQ(CardRows::columnsFor(249, 250, 14), 1);
    EXPECT_EQ(CardRows::columnsFor(0, 250, 14), 1);
    EXPECT_EQ(CardRows::columnsFor(-100, 250, 14), 1);
}

TEST_F(CardRowsTest, lastRowHoldsTheRest)
{
    rows.setColumns(3);
    rows.reload(7);
    EXPECT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(row(0), QStringList({u"0"_s, u"1"_s, u"2"_s}));
    EXPECT_EQ(row(2), QStringList({u"6"_s}));
}

TEST_F(CardRowsTest, changingColumnsRearranges)
{
    rows.setColumns(2);
    rows.reload(5);
    rows.setColumns(4);
    EXPECT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(row(1), QStringList({u"4"_s}));
    rows.setColumns(0);
    EXPECT_EQ(rows.columns(), 1);
    EXPECT_EQ(rows.rowCount(), 5);
}

TEST_F(CardRowsTest, keepsRowsAndTellsThatTheirContentsChanged)
{
    rows.setColumns(2);
    rows.reload(6);
    QSignalSpy changed(&rows, &CardRows::dataChanged);
    QSignalSpy removed(&rows, &CardRows::rowsRemoved);
    QSignalSpy reset(&rows, &CardRows::modelReset);
    rows.reload(3);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 1);
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(reset.count(), 0);
    rows.reload(0);
    EXPECT_EQ(rows.rowCount(), 0);
}

} // namespace hmatnik::test
