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

} // namespace hmatnik
