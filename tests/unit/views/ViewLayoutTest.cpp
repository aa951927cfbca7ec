#include "FakeDesktop.h"
#include "model/AppModel.h"
#include "views/CardData.h"
#include "views/ShellBridge.h"
#include "views/TipsState.h"
#include "views/ViewsContext.h"

#include <QGuiApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScopeGuard>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

/// The items below one that are of a type of ours, in the order of their making.
QList<QQuickItem *> below(const QQuickItem *item, const QByteArray &type)
{
    QList<QQuickItem *> found;
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children) {
        const QByteArray name = child->metaObject()->className();
        if (name.startsWith(type + "_QML") || child->inherits(type.constData()))
            found.append(child);
        found += below(child, type);
    }
    return found;
}

} // namespace

/// Views on their own, with contents that the running program hardly ever shows.
class ViewLayoutTest : public testing::Test
{
protected:
    ViewLayoutTest()
    {
        m_desktop.appearance->setColorScheme(platform::Appearance::ColorScheme::Dark);
        m_window.resize(800, 600);
        m_window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    }

    QQuickItem *make(const QString &view, const QVariantMap &properties)
    {
        QQmlComponent component(
            m_context.engine(), QUrl(u"qrc:/qt/qml/Hmatnik/"_s + view + u".qml"_s));
        m_item.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(properties)));
        EXPECT_TRUE(m_item) << component.errorString().toStdString();
        if (m_item)
            m_item->setParentItem(m_window.contentItem());
        // Positioners place their items before the next frame.
        EXPECT_FALSE(m_window.grabWindow().isNull());
        return m_item.get();
    }
    /// A window of tips, with no tip in it.
    QQuickItem *makeWithoutTips(const QString &view)
    {
        const ShellActions actions{
            .toggleOverlay = [this] { m_done.append(u"overlay"_s); },
            .showMainWindow = [this] { m_done.append(u"library"_s); },
            .importSystemShortcuts = [] {},
            .quit =
                [this] {
                    m_done.append(u"quit"_s);
                }};
        QQuickItem *item = make(
            view, {{u"tips"_s, QVariant::fromValue(&m_tips)},
                   {u"shell"_s, QVariant::fromValue(new ShellBridge(m_model, actions, &m_owner))}});
        m_heightWithTips = item->height();
        // Those of the key caps in the tips count to a number.
        QList<QQuickItem *> repeaters = below(item, "QQuickRepeater");
        repeaters.removeIf([](const QQuickItem *repeater) {
            return repeater->property("model").typeId() != QMetaType::QVariantList;
        });
        EXPECT_EQ(repeaters.size(), 1);
        if (repeaters.isEmpty())
            return nullptr;
        m_tipList = repeaters[0]->parentItem();
        EXPECT_GT(repeaters[0]->property("count").toInt(), 0);
        repeaters[0]->setProperty("model", QVariantList());
        EXPECT_TRUE(QTest::qWaitFor([this, item] { return item->height() < m_heightWithTips; }));
        return item;
    }

    /// Presses the button where it is, and lets go of it.
    void click(const QQuickItem *button)
    {
        const QPointF place = button->mapToScene(button->boundingRect().center());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(
                type, place, m_window.mapToGlobal(place), Qt::LeftButton,
                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, {});
            // At once: with the next turn of the event loop, what the test holds may be over.
            QCoreApplication::sendEvent(&m_window, &event);
        }
    }

    test::FakeDesktop m_desktop;
    AppModel m_model{m_desktop.desktop()};
    TipsState m_tips{m_model};
    ViewsContext m_context{m_desktop.appearance};
    QObject m_owner;
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_item;
    QQuickItem *m_tipList = nullptr;
    double m_heightWithTips = 0;
    QStringList m_done;
};

TEST_F(ViewLayoutTest, KeyCapsGrowWithTheirTokensAndNeverShrink)
{
    const QStringList keys{u"I"_s, u"Dlouhé slovo na klávese"_s, u"⌘"_s};
    for (const auto &[isCompact, width, height, spacing] :
         {std::tuple{false, 30, 28, 5}, std::tuple{true, 21, 20, 3}}) {
        const QQuickItem *combination =
            make(u"KeyCaps"_s, {{u"keys"_s, keys}, {u"compact"_s, isCompact}});
        const auto caps = below(combination, "hmatnik::Surface");
        ASSERT_EQ(caps.size(), 3);
        EXPECT_EQ(caps[0]->width(), width);
        EXPECT_EQ(caps[2]->width(), width);
        const QQuickItem *word = below(caps[1], "PlainText").value(0);
        ASSERT_TRUE(word);
        EXPECT_EQ(word->width(), word->implicitWidth());
        EXPECT_GE(caps[1]->width(), word->width() + (isCompact ? 10 : 16));
        EXPECT_GT(caps[1]->width(), 3 * width);
        for (const QQuickItem *cap : caps)
            EXPECT_EQ(cap->height(), height);
        EXPECT_EQ(combination->implicitWidth(), 2 * (width + spacing) + caps[1]->width());
    }
}

TEST_F(ViewLayoutTest, ACardWithoutKeysKeepsItsHeight)
{
    EXPECT_EQ(make(u"KeyCaps"_s, {{u"keys"_s, QStringList()}})->implicitWidth(), 0);
    const Shortcut shortcut{u"custom-1"_s, u"Bez kláves"_s, {}, Shortcut::Category::text, {},
                            u"Nic."_s};
    const QQuickItem *card = make(
        u"ShortcutCard"_s,
        {{u"card"_s, QVariant::fromValue(CardData(shortcut, false, KeyStyle::mac))},
         {u"width"_s, 300}});
    EXPECT_EQ(card->implicitHeight(), 145);
    EXPECT_TRUE(below(below(card, "KeyCaps").value(0), "hmatnik::Surface").isEmpty());
}

TEST_F(ViewLayoutTest, AButtonOfTheTopBarWithoutATextShowsItsSymbol)
{
    const QQuickItem *named =
        make(u"GlassButton"_s, {{u"symbol"_s, u"macwindow"_s}, {u"text"_s, u"Finder"_s}});
    const double widthWithName = named->implicitWidth();
    const QQuickItem *button =
        make(u"GlassButton"_s, {{u"symbol"_s, u"macwindow"_s}, {u"text"_s, QString()}});
    EXPECT_LT(button->implicitWidth(), widthWithName);
    EXPECT_EQ(button->implicitHeight(), 32);
    const QQuickItem *symbol = below(button, "Symbol").value(0);
    ASSERT_TRUE(symbol);
    EXPECT_TRUE(symbol->isVisible());
    EXPECT_GT(symbol->width(), 0);
    EXPECT_GE(button->implicitWidth(), symbol->width() + 22);
}

TEST_F(ViewLayoutTest, TheImportButtonDoesNotReactWhileAnImportRuns)
{
    const QQuickItem *bar = make(
        u"TopBar"_s, {{u"model"_s, QVariant::fromValue(&m_model)},
                      {u"shell"_s, QVariant::fromValue(new ShellBridge(m_model, {}, &m_owner))},
                      {u"title"_s, u"Knihovna"_s},
                      {u"width"_s, 700},
                      {u"height"_s, 66}});
    QQuickItem *button = below(bar, "GlassButton").value(1);
    ASSERT_TRUE(button);
    EXPECT_EQ(button->property("text").toString(), u"Import z menu"_s);
    const QSignalSpy clicked(button, SIGNAL(clicked()));
    click(button);
    EXPECT_EQ(clicked.size(), 1);

    m_desktop.workspace->activate(u"Finder"_s, 4321);
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_model.activeAppPID() == 4321; }));
    m_model.importFrontmostMenu();
    ASSERT_TRUE(m_model.isImporting());
    EXPECT_EQ(button->property("text").toString(), u"Importuji…"_s);
    EXPECT_FALSE(button->isEnabled());
    click(button);
    EXPECT_EQ(clicked.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_model.isImporting(); }));
    EXPECT_EQ(button->property("text").toString(), u"Import z menu"_s);
    EXPECT_TRUE(button->isEnabled());
}

TEST_F(ViewLayoutTest, TheOverlayWithoutTipsKeepsTheRest)
{
    const QQuickItem *overlay = makeWithoutTips(u"ContextOverlayView"_s);
    ASSERT_TRUE(overlay);
    QList<const QQuickItem *> rows;
    for (const QQuickItem *row : m_tipList->childItems()) {
        if (row->height() > 0)
            rows.append(row);
    }
    ASSERT_EQ(rows.size(), 3); // header, divider, button
    EXPECT_EQ(rows[0]->y(), 0);
    EXPECT_EQ(rows[1]->height(), 1);
    EXPECT_EQ(rows[1]->y(), rows[0]->height() + 14);
    EXPECT_EQ(rows[2]->y(), rows[1]->y() + 1 + 14);
    EXPECT_EQ(overlay->height(), rows[2]->y() + rows[2]->height() + 36);
    EXPECT_EQ(overlay->width(), 380);
}

TEST_F(ViewLayoutTest, TheOverlayGoesBeforeTheLibraryComes)
{
    const QQuickItem *overlay = makeWithoutTips(u"ContextOverlayView"_s);
    ASSERT_TRUE(overlay);
    const auto close = below(overlay, "PlainButton");
    const auto library = below(overlay, "ProminentButton");
    ASSERT_EQ(close.size(), 1);
    ASSERT_EQ(library.size(), 1);
    click(close[0]);
    EXPECT_EQ(m_done, QStringList{u"overlay"_s});
    m_done.clear();
    click(library[0]);
    EXPECT_EQ(m_done, QStringList({u"overlay"_s, u"library"_s}));
}

TEST_F(ViewLayoutTest, TheTipsAreaKeepsItsPaddingWithoutTips)
{
    const QQuickItem *menu = makeWithoutTips(u"MenuBarView"_s);
    ASSERT_TRUE(menu);
    EXPECT_EQ(m_tipList->height(), 14);
    EXPECT_EQ(below(menu, "BrandMark").size(), 1);
    EXPECT_EQ(below(menu, "ProminentButton").size(), 1);
    EXPECT_EQ(below(menu, "PlainButton").size(), 2);
    int dividers = 0;
    for (const QQuickItem *row : m_tipList->parentItem()->childItems())
        dividers += row->height() == 1 ? 1 : 0;
    EXPECT_EQ(dividers, 2);
}

TEST_F(ViewLayoutTest, TheStickerHasAsManyColumnsAsFit)
{
    constexpr int padding = 44;
    constexpr int column = 210;
    constexpr int gap = 10;
    for (const auto &[width, columns] :
         {std::pair{column, 1}, std::pair{2 * column + gap - 1, 1}, std::pair{2 * column + gap, 2},
          std::pair{3 * column + 2 * gap - 1, 2}, std::pair{3 * column + 2 * gap, 3}}) {
        const QQuickItem *view = make(
            u"StickerView"_s, {{u"model"_s, QVariant::fromValue(&m_model)},
                               {u"width"_s, width + padding},
                               {u"height"_s, 500}});
        const QQuickItem *grid = below(view, "QQuickGridLayout").value(0);
        ASSERT_TRUE(grid);
        QSet<double> places;
        for (const QQuickItem *cell : below(grid, "GlassSurface"))
            places.insert(cell->x());
        EXPECT_EQ(places.size(), columns) << width;
    }
}

TEST_F(ViewLayoutTest, ADrawnKeyTellsByItsGroundAndOutlineWhetherItIsAvailable)
{
    const auto colour = [](const QQuickItem *key, const char *property) {
        const auto *ground = key->property("background").value<QQuickItem *>();
        return ground->property(property).value<QColor>().name(QColor::HexArgb);
    };
    const auto strokeWidth = [](const QQuickItem *key) {
        const auto *ground = key->property("background").value<QQuickItem *>();
        return ground->property("strokeWidth").toDouble();
    };
    const auto key = [this](bool isAvailable, bool isSelected) {
        return make(
            u"KeyboardKey"_s, {{u"text"_s, u"K"_s},
                               {u"available"_s, isAvailable},
                               {u"checked"_s, isSelected},
                               {u"width"_s, 43},
                               {u"height"_s, 39}});
    };
    const auto faded = [](QColor base, double opacity) {
        base.setAlphaF(static_cast<float>(opacity));
        return base.name(QColor::HexArgb);
    };
    const QColor green(0x30, 0xD1, 0x58);

    const QQuickItem *other = key(false, false);
    EXPECT_EQ(colour(other, "fill"), faded(Qt::white, 0.10));
    EXPECT_EQ(colour(other, "stroke"), faded(Qt::white, 0.25));
    EXPECT_EQ(strokeWidth(other), 1);
    const QQuickItem *available = key(true, false);
    EXPECT_EQ(colour(available, "fill"), faded(green, 0.18));
    EXPECT_EQ(colour(available, "stroke"), faded(green, 0.65));
    EXPECT_EQ(strokeWidth(available), 1.5);
    const QQuickItem *selected = key(true, true);
    EXPECT_EQ(colour(selected, "fill"), m_context.theme().accentFill().name(QColor::HexArgb));
    EXPECT_EQ(colour(selected, "stroke"), faded(green, 0.65));
    EXPECT_EQ(
        below(selected, "PlainText").value(0)->property("color").value<QColor>(),
        QColor(Qt::white));
}

TEST_F(ViewLayoutTest, AWordOnADrawnKeyStaysOnIt)
{
    const QFont before = QGuiApplication::font();
    const auto restore = qScopeGuard([&before] { QGuiApplication::setFont(before); });
    for (const int points : {10, 15, 20}) {
        QFont larger = before;
        larger.setPointSize(points);
        QGuiApplication::setFont(larger);
        for (const QString &text : {u"Super"_s, u"Backspace"_s, u"AltGr"_s}) {
            const QQuickItem *key = make(
                u"KeyboardKey"_s,
                {{u"text"_s, text}, {u"available"_s, false}, {u"width"_s, 38}, {u"height"_s, 39}});
            const QQuickItem *word = below(key, "PlainText").value(0);
            ASSERT_TRUE(word);
            EXPECT_LE(word->property("contentWidth").toDouble(), 38)
                << qPrintable(text) << " with a font of " << points << " points";
        }
    }
}

} // namespace hmatnik
