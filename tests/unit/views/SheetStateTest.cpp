#include "views/SheetState.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

QString shown(const SheetState &sheets)
{
    return sheets.property("sheet").toString();
}

} // namespace

TEST(SheetStateTest, NoSheetAtFirst)
{
    const SheetState sheets;
    EXPECT_EQ(sheets.sheet(), std::nullopt);
    EXPECT_EQ(shown(sheets), QString());
}

TEST(SheetStateTest, OneSheetAtATime)
{
    SheetState sheets;
    const QSignalSpy changes(&sheets, &SheetState::changed);
    sheets.openSettings();
    EXPECT_EQ(sheets.sheet(), AppSheet::settings);
    EXPECT_EQ(shown(sheets), u"settings"_s);
    sheets.openSettings();
    EXPECT_EQ(changes.count(), 1);
    sheets.openEditor();
    EXPECT_EQ(sheets.sheet(), AppSheet::add);
    EXPECT_EQ(shown(sheets), u"add"_s);
    sheets.dismiss();
    EXPECT_EQ(sheets.sheet(), std::nullopt);
    sheets.dismiss();
    EXPECT_EQ(changes.count(), 3);
}

TEST(SheetStateTest, AnEmptySheetMakesWay)
{
    SheetState sheets;
    sheets.makeWay();
    EXPECT_FALSE(sheets.isScreenAwaited()) << "there was nothing in the way";
    for (const AppSheet sheet : {AppSheet::settings, AppSheet::add}) {
        sheets.setSheet(sheet);
        EXPECT_FALSE(sheets.isScreenAwaited());
        bool wasAwaited = false;
        const auto closing = QObject::connect(
            &sheets, &SheetState::changed, &sheets, [&] { wasAwaited = sheets.isScreenAwaited(); });
        sheets.makeWay();
        QObject::disconnect(closing);
        EXPECT_EQ(sheets.sheet(), std::nullopt);
        EXPECT_TRUE(wasAwaited) << "who closes it must know who has the keyboard then";
    }
}

TEST(SheetStateTest, ASheetThatHoldsSomethingStaysUntilItIsFinished)
{
    SheetState sheets;
    sheets.openEditor();
    sheets.setHasInput(true);
    const QSignalSpy changes(&sheets, &SheetState::changed);
    sheets.makeWay();
    EXPECT_EQ(sheets.sheet(), AppSheet::add);
    EXPECT_TRUE(changes.isEmpty());
    sheets.dismiss();
    EXPECT_TRUE(sheets.isScreenAwaited());

    // The next one begins empty and for itself.
    sheets.openEditor();
    EXPECT_FALSE(sheets.isScreenAwaited());
    EXPECT_FALSE(sheets.hasInput());
    sheets.makeWay();
    EXPECT_EQ(sheets.sheet(), std::nullopt);
}

} // namespace hmatnik
