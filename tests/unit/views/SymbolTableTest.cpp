#include "views/SymbolTable.h"

#include "model/ModifierFilter.h"
#include "model/Shortcut.h"
#include "model/ShortcutLibrary.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QRawFont>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace hmatnik::test {

using namespace Qt::StringLiterals;

namespace {

QRawFont fontOf(const QString &family)
{
    QFont font(family);
    font.setStyleStrategy(QFont::NoFontMerging);
    return QRawFont::fromFont(font);
}

} // namespace

TEST(SymbolTableTest, everySymbolHasAGlyphInItsFont)
{
    ASSERT_TRUE(QFontDatabase::families().contains(u"Material Icons"_s));
    const QRawFont icons = fontOf(u"Material Icons"_s);
    const QRawFont text = fontOf(u"Inter"_s);
    for (const QString &name : SymbolTable::names()) {
        const QString glyph = SymbolTable::glyph(name);
        ASSERT_EQ(glyph.size(), 1) << qPrintable(name);
        const QRawFont &font = SymbolTable::isTextGlyph(name) ? text : icons;
        EXPECT_TRUE(font.supportsCharacter(glyph.at(0))) << qPrintable(name);
    }
}

TEST(SymbolTableTest, knowsTheSymbolOfEveryCategory)
{
    for (const Shortcut::Category category : Shortcut::allCategories)
        EXPECT_FALSE(SymbolTable::glyph(Shortcut::symbol(category)).isEmpty());
}

TEST(SymbolTableTest, unknownNamesHaveNone)
{
    EXPECT_EQ(SymbolTable::glyph(u"no.such.symbol"_s), QString());
    EXPECT_EQ(SymbolTable::glyph({}), QString());
}

TEST(SymbolTableTest, everyNameUsedInTheViewsIsKnown)
{
    static const QRegularExpression symbol(u"(?:symbol|name): \"([a-z0-9.]+)\""_s);
    int found = 0;
    const QDir views(QStringLiteral(HMATNIK_SOURCE_DIR "/src/views"));
    for (const QString &file : views.entryList({u"*.qml"_s})) {
        QFile source(views.filePath(file));
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(source.readAll());
        for (auto match = symbol.globalMatch(text); match.hasNext();) {
            const QString name = match.next().captured(1);
            EXPECT_FALSE(SymbolTable::glyph(name).isEmpty()) << qPrintable(file + u' ' + name);
            ++found;
        }
    }
    EXPECT_GT(found, 5);
}

TEST(SymbolTableTest, keyGlyphsComeFromTheTextFont)
{
    const QRawFont text = fontOf(u"Inter"_s);
    for (const ModifierFilter filter : allModifierFilters) {
        for (const QChar character : rawValue(filter))
            EXPECT_TRUE(text.supportsCharacter(character)) << qPrintable(rawValue(filter));
    }
    for (const Shortcut &shortcut : ShortcutLibrary::all()) {
        for (const QChar character : shortcut.keys.join(QString()))
            EXPECT_TRUE(text.supportsCharacter(character)) << qPrintable(shortcut.id);
    }
}

} // namespace hmatnik::test
