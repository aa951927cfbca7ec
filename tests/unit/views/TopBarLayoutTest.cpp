#include "views/TopBarLayout.h"

#include <gtest/gtest.h>

namespace hmatnik::test {

namespace {

using Widths = QList<double>;

// As the parts stand in the enumeration: overlay, search, importer, title.
const Widths natural{400, 210, 118, 250};
const Widths least{36, 100, 36, 200};

} // namespace

TEST(TopBarLayoutTest, everyPartIsAsItWantsToBeWhereThereIsRoom)
{
    EXPECT_EQ(TopBarLayout::widths(978, natural, least), natural);
    EXPECT_EQ(TopBarLayout::widths(2000, natural, least), natural);
}

TEST(TopBarLayoutTest, theNameGivesWayFirst)
{
    EXPECT_EQ(TopBarLayout::widths(675, natural, least), (Widths{97, 210, 118, 250}));
    EXPECT_EQ(TopBarLayout::widths(614, natural, least), (Widths{36, 210, 118, 250}));
}

TEST(TopBarLayoutTest, thenTheSearchFieldThenTheImportAndTheTitleLast)
{
    EXPECT_EQ(TopBarLayout::widths(550, natural, least), (Widths{36, 146, 118, 250}));
    EXPECT_EQ(TopBarLayout::widths(460, natural, least), (Widths{36, 100, 74, 250}));
    EXPECT_EQ(TopBarLayout::widths(400, natural, least), (Widths{36, 100, 36, 228}));
    EXPECT_EQ(TopBarLayout::widths(100, natural, least), least);
}

TEST(TopBarLayoutTest, aPartThatIsNarrowerThanItsLeastKeepsItsWidth)
{
    EXPECT_EQ(TopBarLayout::widths(300, {20, 210, 118, 250}, least), (Widths{20, 100, 36, 200}));
}

} // namespace hmatnik::test
