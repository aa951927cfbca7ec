#include "views/RendererChoice.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;
using RendererChoice::drawsBetterInSoftware;

TEST(RendererChoiceTest, softwareWithoutAGraphicsCard)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(drawsBetterInSoftware(folder.filePath(u"absent"_s)));
    EXPECT_TRUE(drawsBetterInSoftware(folder.path()));
}

TEST(RendererChoiceTest, aDisplayWithoutARenderNodeIsNoGraphicsCard)
{
    const QTemporaryDir folder;
    QFile card(folder.filePath(u"card0"_s));
    ASSERT_TRUE(card.open(QIODevice::WriteOnly));
    EXPECT_TRUE(drawsBetterInSoftware(folder.path()));
}

TEST(RendererChoiceTest, graphicsCardWhereThereIsOne)
{
    const QTemporaryDir folder;
    QFile node(folder.filePath(u"renderD128"_s));
    ASSERT_TRUE(node.open(QIODevice::WriteOnly));
    EXPECT_FALSE(drawsBetterInSoftware(folder.path()));
}

} // namespace hmatnik::test
