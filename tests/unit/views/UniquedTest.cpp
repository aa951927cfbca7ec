#include "views/Uniqued.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

Shortcut shortcut(const QString &id, const QString &title)
{
    return {id, title, {u"⌘"_s, u"K"_s}, Shortcut::Category::text, {}, u"Něco udělá."_s};
}

} // namespace

TEST(Uniqued, KeepsTheFirstOfEqualShortcuts)
{
    const Shortcut a = shortcut(u"a"_s, u"A"_s);
    const Shortcut b = shortcut(u"b"_s, u"B"_s);
    EXPECT_EQ(uniqued({a, b, a, b, b}), (QList<Shortcut>{a, b}));
    EXPECT_EQ(uniqued({b, a, b}), (QList<Shortcut>{b, a}));
    EXPECT_TRUE(uniqued({}).isEmpty());
}

TEST(Uniqued, TellsShortcutsOfOneIdApart)
{
    const Shortcut a = shortcut(u"a"_s, u"A"_s);
    const Shortcut renamed = shortcut(u"a"_s, u"Jiné"_s);
    EXPECT_EQ(uniqued({a, renamed}), (QList<Shortcut>{a, renamed}));
}

} // namespace hmatnik
