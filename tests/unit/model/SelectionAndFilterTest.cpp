#include "model/ModifierFilter.h"
#include "model/SidebarSelection.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik::test {

TEST(ModifierFilter, RawValuesInOrderOfThePills)
{
    QStringList values;
    for (const ModifierFilter filter : allModifierFilters)
        values.append(rawValue(filter));
    EXPECT_EQ(values, (QStringList{u"⌘"_s, u"⌥"_s, u"⇧"_s, u"⌃"_s, u"Fn"_s}));
}

TEST(SidebarSelection, KindsInOrder)
{
    using Kind = SidebarSelection::Kind;
    const std::array kinds{Kind::all,     Kind::favorites, Kind::category, Kind::keyboard,
                           Kind::sticker, Kind::firstAid,  Kind::daily,    Kind::practice};
    for (std::size_t i = 0; i < kinds.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(kinds.at(i)), i);
    EXPECT_EQ(SidebarSelection().kind(), Kind::all);
}

TEST(SidebarSelection, EqualityAndHashHeedThePayload)
{
    QList<SidebarSelection> selections;
    using Kind = SidebarSelection::Kind;
    for (const Kind kind :
         {Kind::all, Kind::favorites, Kind::keyboard, Kind::sticker, Kind::firstAid, Kind::daily,
          Kind::practice})
        selections.append(kind);
    for (const auto category : Shortcut::allCategories)
        selections.append(SidebarSelection::ofCategory(category));

    QSet<size_t> hashes;
    for (qsizetype i = 0; i < selections.size(); ++i) {
        const SidebarSelection copy = selections.at(i);
        EXPECT_EQ(qHash(copy), qHash(selections.at(i)));
        hashes.insert(qHash(copy));
        for (qsizetype j = 0; j < selections.size(); ++j)
            EXPECT_EQ(selections.at(i) == selections.at(j), i == j);
    }
    EXPECT_EQ(hashes.size(), selections.size());
}

} // namespace hmatnik::test
