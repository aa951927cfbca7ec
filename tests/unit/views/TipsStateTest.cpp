#include "views/TipsState.h"

#include "FakeDesktop.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

QStringList ids(const TipsState &tips)
{
    QStringList result;
    for (const QVariant &tip : tips.tips())
        result.append(tip.value<CardData>().id);
    return result;
}

} // namespace

TEST(TipsStateTest, exactlyFourTipsInRankedOrder)
{
    FakeDesktop desktop;
    AppModel model(desktop.desktop());
    const TipsState tips(model);
    EXPECT_EQ(ids(tips), QStringList({u"copy"_s, u"paste"_s, u"undo"_s, u"redo"_s}));
}

TEST(TipsStateTest, followsTheApplicationInFront)
{
    FakeDesktop desktop;
    AppModel model(desktop.desktop());
    const TipsState tips(model);
    QSignalSpy changes(&tips, &TipsState::changed);
    desktop.workspace->activate(u"Finder"_s, 4321);
    QCoreApplication::processEvents();
    EXPECT_EQ(tips.activeApp(), u"Finder"_s);
    EXPECT_EQ(
        ids(tips), QStringList({u"new-folder"_s, u"go-folder"_s, u"trash"_s, u"quick-look"_s}));
    EXPECT_GE(changes.count(), 1);
}

TEST(TipsStateTest, namesTheApplicationInFront)
{
    FakeDesktop desktop;
    desktop.workspace->activate(u"Finder"_s, 4321);
    AppModel model(desktop.desktop());
    const TipsState tips(model);
    EXPECT_EQ(tips.header(), u"Tipy pro Finder"_s);
    EXPECT_EQ(tips.overlayCommand(), u"Zobrazit overlay pro Finder"_s);
}

TEST(TipsStateTest, nothingFollowsWhereNoApplicationIsInFront)
{
    EXPECT_EQ(TipsTexts::header({}), u"Tipy pro "_s);
    EXPECT_EQ(TipsTexts::showOverlay({}), u"Zobrazit overlay pro "_s);
}

} // namespace hmatnik::test
