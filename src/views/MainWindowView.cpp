#include "views/MainWindowView.h"

#include "views/DestinationKeys.h"
#include "views/KeyCapture.h"
#include "views/ShellBridge.h"
#include "views/SpareMemory.h"
#include "views/WindowActivation.h"
#include "views/WindowFrame.h"
#include "views/WindowRescaling.h"

#include <QKeyEvent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QScreen>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

const QString frameKey = u"MainWindow.frame"_s;
const QString maximizedKey = u"MainWindow.maximized"_s;

// Long enough that a drag does not write at every step, short enough to be there when a person
// logs out right after.
constexpr int frameRestMilliseconds = 300;

} // namespace

MainWindowView::MainWindowView(
    ViewsContext &context, AppModel &model, UpdateChecker &updateChecker,
    const ShellActions &actions)
    : QQuickView(context.engine(), nullptr)
    , m_model(model)
    , m_sidebar(model)
    , m_library(model)
    , m_filterBar(model)
    , m_menuBar(*this, actions)
    , m_banner(&updateChecker, model.desktop().urlOpener)
    , m_saveNotice(model.desktop().preferences)
{
    setTitle(u"Hmatník"_s);
    setMinimumSize(WindowFrame::minimumSize);
    setResizeMode(QQuickView::SizeRootObjectToView);
    setColor(context.theme().windowBackground());
    connect(&context.theme(), &Theme::changed, this, [this, &context] {
        setColor(context.theme().windowBackground());
    });
    restoreFrame();
    connect(&m_screens, &ScreenWatch::changed, this, &MainWindowView::followScreens);
    const auto noteScale = [this] {
        m_scale = screen()->devicePixelRatio();
    };
    connect(this, &QWindow::screenChanged, this, noteScale);
    noteScale();

    m_frameRest.setSingleShot(true);
    m_frameRest.setInterval(frameRestMilliseconds);
    connect(&m_frameRest, &QTimer::timeout, this, &MainWindowView::frameRested);

    // The person has turned to something else, or has closed the window.
    connect(
        this, &QWindow::activeChanged, this,
        [this] {
            if (!isActive())
                giveBackMemory(*engine());
        },
        Qt::QueuedConnection);

    connect(&m_sheets, &SheetState::changed, this, [this] {
        if (m_sheets.sheet())
            m_menuBar.setShown(false);
    });

    const auto followImport = [this] {
        m_menuBar.setUsable(MenuAction::ImportSystemShortcuts, !m_model.isImporting());
    };
    connect(&model, &AppModel::isImportingChanged, this, followImport);
    followImport();

    // Before any screen takes the request, so that the quiz finds nothing over itself.
    connect(&model, &AppModel::practiceRequested, this, [this] {
        m_menuBar.setShown(false);
        m_sheets.makeWay();
    });

    auto *bridge = new ShellBridge(model, actions, this);
    setInitialProperties(
        {{u"model"_s, QVariant::fromValue(&model)},
         {u"shell"_s, QVariant::fromValue(bridge)},
         {u"sidebar"_s, QVariant::fromValue(&m_sidebar)},
         {u"library"_s, QVariant::fromValue(&m_library)},
         {u"filterBar"_s, QVariant::fromValue(&m_filterBar)},
         {u"menuBar"_s, QVariant::fromValue(&m_menuBar)},
         {u"sheets"_s, QVariant::fromValue(&m_sheets)},
         {u"updateChecker"_s, QVariant::fromValue(&updateChecker)},
         {u"banner"_s, QVariant::fromValue(&m_banner)},
         {u"saveNotice"_s, QVariant::fromValue(&m_saveNotice)}});
    setSource(QUrl(u"qrc:/qt/qml/Hmatnik/MainView.qml"_s));
}

MainWindowView::~MainWindowView()
{
    frameRested();
    // The screens read the states below, which go before the view does.
    setSource({});
}

void MainWindowView::setMenu(const MenuTable &menu)
{
    m_menuBar.setMenu(menu);
}

void MainWindowView::present()
{
    m_model.refresh();
    // Not show(), which ends whatever makes a window fill the screen.
    if (!isVisible()) {
        m_frame.place(WindowFrame::keptVisible(m_frame.normal(), ScreenWatch::workAreas()));
        m_hasSpareColumn = m_hasSpareColumn && !m_frame.filling();
        setGeometry(QRect(
            m_frame.normal().topLeft(),
            m_frame.normal().size() + (m_hasSpareColumn ? spareColumn : QSize(0, 0))));
        setWindowStates(m_frame.filling());
        setVisible(true);
    } else if (windowStates() & Qt::WindowMinimized) {
        setWindowStates(m_frame.filling());
    }
    activate(*this, *m_model.desktop().workspace);
}

bool MainWindowView::isShown() const
{
    return isVisible() && visibility() != QWindow::Minimized;
}

bool MainWindowView::event(QEvent *event)
{
    if (event->type() == QEvent::Close)
        frameRested();
    else if (event->type() == QEvent::WindowStateChange)
        stateChanged();
    noticeMenuKeys(event);
    if (event->type() == QEvent::KeyPress && goToDestination(*static_cast<QKeyEvent *>(event)))
        return true;
    return QQuickView::event(event);
}

bool MainWindowView::goToDestination(const QKeyEvent &press)
{
    // A sheet has the window to itself, and the quiz wants the keys as answers.
    if (m_sheets.sheet() || qobject_cast<KeyCapture *>(activeFocusItem()))
        return false;
    const std::optional<int> row = destinationRow(press, *m_model.desktop().keyboardLayout);
    if (row)
        m_sidebar.select(*row);
    return row.has_value();
}

void MainWindowView::noticeMenuKeys(QEvent *event)
{
    // There Alt and F10 are answers like any other key.
    if (qobject_cast<KeyCapture *>(activeFocusItem())) {
        m_altAlone = false;
        return;
    }
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        m_altAlone = key->key() == Qt::Key_Alt && key->modifiers() == Qt::AltModifier;
        if (key->key() == Qt::Key_F10 && key->modifiers() == Qt::NoModifier)
            toggleMenuBar();
        break;
    }
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent *>(event)->key() == Qt::Key_Alt && m_altAlone)
            toggleMenuBar();
        m_altAlone = false;
        break;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
    case QEvent::FocusOut:
        m_altAlone = false;
        break;
    default:
        break;
    }
}

void MainWindowView::toggleMenuBar()
{
    // A sheet has the window to itself.
    if (!m_sheets.sheet())
        m_menuBar.setShown(!m_menuBar.isShown());
}

void MainWindowView::moveEvent(QMoveEvent *event)
{
    QQuickView::moveEvent(event);
    frameChanged();
}

void MainWindowView::resizeEvent(QResizeEvent *event)
{
    QQuickView::resizeEvent(event);
    frameChanged();
}

void MainWindowView::restoreFrame()
{
    const QVariant stored = m_model.desktop().preferences->value(frameKey);
    const std::optional<QRect> saved = stored.typeId() == QMetaType::QString
                                           ? WindowFrame::fromText(stored.toString())
                                           : std::nullopt;
    const QVariant maximized = m_model.desktop().preferences->value(maximizedKey);
    m_frame = FrameMemory(
        WindowFrame::opening(saved, ScreenWatch::workAreas()),
        maximized == QVariant(true) ? Qt::WindowMaximized : Qt::WindowNoState);
    setGeometry(m_frame.normal());
}

/// Window managers differ in whether they bring back a window whose screen has gone, and none
/// enlarges a window that is drawn larger from now on.
void MainWindowView::followScreens()
{
    const QList<QRect> areas = ScreenWatch::workAreas();
    const double scale = screen()->devicePixelRatio();
    if (scale == m_scale) {
        const QRect visible = WindowFrame::keptVisible(geometry(), areas);
        // Not without need: a size that was just asked for may be on its way.
        if (isVisible() && windowState() == Qt::WindowNoState && visible != geometry())
            setGeometry(visible);
        return;
    }
    const QPoint origin = screen()->geometry().topLeft();
    QRect frame = m_frame.normal();
    frame.moveTopLeft(origin + (frame.topLeft() - origin) * (m_scale / scale));
    m_frame.place(WindowFrame::opening(frame, areas));
    m_scale = scale;
    const bool wasVisible = isVisible();
    const bool wasActive = isActive();
    const Qt::WindowStates states = windowStates();
    m_hasSpareColumn = makeForNewScale(*this, m_frame.normal());
    if (!wasVisible)
        return;
    setWindowStates(states);
    setVisible(true);
    if (wasActive)
        activate(*this, *m_model.desktop().workspace);
}

/// Right after a change of scale the toolkit tells numbers of both.
bool MainWindowView::isGeometrySettled() const
{
    return !m_hasSpareColumn && screen()->devicePixelRatio() == m_scale;
}

void MainWindowView::frameChanged()
{
    if (!isVisible())
        return;
    if (m_hasSpareColumn && size() == m_frame.normal().size() + spareColumn)
        return;
    m_hasSpareColumn = false;
    m_frameRest.start();
    if (isGeometrySettled())
        m_frame.moved(geometry(), windowStates());
}

void MainWindowView::stateChanged()
{
    // A window that hides loses its states, by the window manager's doing, not by the person's.
    if (!isVisible())
        return;
    m_frameRest.start();
    m_frame.changed(windowStates());
}

void MainWindowView::frameRested()
{
    m_frameRest.stop();
    if (!isVisible())
        return;
    if (isGeometrySettled())
        m_frame.rested(geometry(), windowStates());
    saveFrame();
}

void MainWindowView::saveFrame()
{
    const auto save = [this](const QString &key, const QVariant &value, const QVariant &absent) {
        const std::shared_ptr<platform::Preferences> &preferences = m_model.desktop().preferences;
        const QVariant stored = preferences->value(key);
        if ((stored.isValid() ? stored : absent) != value)
            preferences->setValue(key, value);
    };
    save(frameKey, WindowFrame::toText(m_frame.normal()), {});
    save(maximizedKey, m_frame.filling().testFlag(Qt::WindowMaximized), false);
}

} // namespace hmatnik
