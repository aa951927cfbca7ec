// How long the real main window takes from what a person does to the next painted frame.
//
//     hmatnik_interaction_benchmark keys COUNT ROUNDS
//     hmatnik_interaction_benchmark screens ROUNDS
//     hmatnik_interaction_benchmark appear ROUNDS
//     hmatnik_interaction_benchmark empty WIDTH HEIGHT ROUNDS
//     hmatnik_interaction_benchmark import PROCESS NAME ROUNDS
//
// `keys` puts COUNT custom shortcuts into the store, starts on it as the program does, and types
// words into the search field; one line "key LETTERS<tab>MILLISECONDS" for each key. `screens` goes
// from every screen to every other; one line "switch FROM > TO<tab>MILLISECONDS" for each step.
// `appear` shows the main window by the hot key, the overlay, and beside each an empty window as
// large with the program's renderer, all made before and hidden; one line "WINDOW<tab>MILLISECONDS"
// for each, after one "sizes WIDTHxHEIGHT WIDTHxHEIGHT" of the two. `empty` shows an empty window
// with the renderer that Qt chooses; one line "empty<tab>MILLISECONDS" for each time. `import`
// reads the menus of a process; one line "longest<tab>MILLISECONDS" for each time, the longest that
// the main thread was away from its event loop meanwhile. All say first "renderer NAME". The store
// is that of the environment, so give it one of its own.

#include "SampleShortcuts.h"
#include "app/ContextOverlay.h"
#include "app/DesktopAdapters.h"
#include "app/HotKeyCenter.h"
#include "app/MainWindow.h"
#include "app/ViewsLoader.h"
#include "model/AppModel.h"
#include "update/ManifestProgram.h"
#include "update/UpdateChecker.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace hmatnik;

namespace {

using Clock = std::chrono::steady_clock;

// No frame for this long: nothing is still on its way that could be taken for an answer.
constexpr int stillMilliseconds = 60;
constexpr int deadlineMilliseconds = 30'000;

QTextStream &out()
{
    static QTextStream stream(stdout);
    return stream;
}

[[noreturn]] void stop(const QString &reason)
{
    QTextStream(stderr) << "hmatnik_interaction_benchmark: " << reason << Qt::endl;
    std::_Exit(2);
}

/// Notes when the window's frames are on the screen.
class Frames
{
public:
    explicit Frames(QQuickWindow &window)
        : m_window(window)
    {
        // Direct, because the signal may come from a thread of its own.
        QObject::connect(
            &window, &QQuickWindow::frameSwapped, &window,
            [this] {
                m_last = Clock::now();
                ++m_count;
                QAbstractEventDispatcher::instance(qApp->thread())->wakeUp();
            },
            Qt::DirectConnection);
    }

    /// Runs the event loop until there was no frame for a while.
    void waitUntilStill()
    {
        QEventLoop loop;
        QTimer rest;
        rest.setSingleShot(true);
        rest.setInterval(stillMilliseconds);
        QObject::connect(&rest, &QTimer::timeout, &loop, &QEventLoop::quit);
        const auto again = QObject::connect(
            &m_window, &QQuickWindow::frameSwapped, &rest, [&rest] { rest.start(); });
        rest.start();
        loop.exec();
        QObject::disconnect(again);
    }

    /// Milliseconds from before the action to the end of the first frame that follows it.
    double after(const std::function<void()> &action)
    {
        waitUntilStill();
        const int before = m_count;
        const auto start = Clock::now();
        action();
        while (m_count == before) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            if (Clock::now() - start > std::chrono::milliseconds(deadlineMilliseconds))
                stop(u"no frame was painted"_s);
        }
        return std::chrono::duration<double, std::milli>(m_last.load() - start).count();
    }

private:
    QQuickWindow &m_window;
    std::atomic<Clock::time_point> m_last;
    std::atomic<int> m_count = 0;
};

QString rendererName(const QQuickWindow &window)
{
    const QSGRendererInterface *renderer = window.rendererInterface();
    switch (renderer->graphicsApi()) {
    case QSGRendererInterface::Software:
        return u"software"_s;
    case QSGRendererInterface::OpenGL:
        return u"OpenGL"_s;
    case QSGRendererInterface::Vulkan:
        return u"Vulkan"_s;
    default:
        return QString::number(renderer->graphicsApi());
    }
}

QQuickWindow &mainWindow()
{
    MainWindow::show();
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (auto *quickWindow = qobject_cast<QQuickWindow *>(window))
            return *quickWindow;
    }
    stop(u"there is no main window"_s);
}

void sendKey(QQuickWindow &window, int key, const QString &text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&window, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(&window, &release);
}

/// Types words letter by letter, as somebody does who looks for something.
void measureKeys(AppModel &model, QQuickWindow &window, Frames &frames, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        for (const QString &word : {u"okno"_s, u"schránka"_s, u"text"_s}) {
            for (qsizetype i = 0; i < word.size(); ++i) {
                const QString letter = word.mid(i, 1);
                const double time = frames.after(
                    [&] { sendKey(window, letter.at(0).toUpper().unicode(), letter); });
                if (model.search() != word.left(i + 1))
                    stop(u"the search field did not take the key"_s);
                out() << "key " << model.search() << '\t' << time << Qt::endl;
            }
            frames.after([&model] { model.setSearch(QString()); });
        }
    }
}

void collectRows(QQuickItem *item, QList<QQuickItem *> &rows)
{
    if (QByteArrayView(item->metaObject()->className()).startsWith("SidebarRow"))
        rows.append(item);
    const QList<QQuickItem *> children = item->childItems();
    for (QQuickItem *child : children)
        collectRows(child, rows);
}

/// The sidebar's rows that lead to a screen each, and the first category.
QList<QQuickItem *> rowsOfScreens(QQuickWindow &window)
{
    constexpr qsizetype screens = 8;
    QList<QQuickItem *> rows;
    collectRows(window.contentItem(), rows);
    if (rows.size() < screens)
        stop(u"the sidebar has only %1 rows"_s.arg(rows.size()));
    return rows.first(screens);
}

void choose(QQuickItem *row)
{
    QMetaObject::invokeMethod(row, "clicked");
}

bool isSelected(const QQuickItem *row)
{
    return row->property("selected").toBool();
}

void measureScreens(QQuickWindow &window, Frames &frames, int rounds)
{
    const QList<QQuickItem *> rows = rowsOfScreens(window);
    const auto name = [](const QQuickItem *row) {
        return row->property("text").toString();
    };
    for (int round = 0; round < rounds; ++round) {
        for (QQuickItem *from : rows) {
            for (QQuickItem *to : rows) {
                if (from == to)
                    continue;
                if (!isSelected(from))
                    frames.after([from] { choose(from); });
                const double time = frames.after([to] { choose(to); });
                if (!isSelected(to))
                    stop(u"the row was not selected"_s);
                out() << "switch " << name(from) << " > " << name(to) << '\t' << time << Qt::endl;
            }
        }
    }
}

/// Presses Control, Alt and Space as a keyboard does, and lets go of them.
class Keyboard
{
public:
    Keyboard()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
    }
    ~Keyboard() { xcb_disconnect(m_connection); }
    Keyboard(const Keyboard &) = delete;
    Keyboard &operator=(const Keyboard &) = delete;

    void press()
    {
        for (const std::uint8_t key : m_keys)
            fake(XCB_KEY_PRESS, key);
        xcb_flush(m_connection);
    }
    void release()
    {
        for (const std::uint8_t key : m_keys)
            fake(XCB_KEY_RELEASE, key);
        xcb_flush(m_connection);
    }

private:
    void fake(std::uint8_t type, std::uint8_t key)
    {
        xcb_test_fake_input(m_connection, type, key, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    }

    xcb_connection_t *m_connection;
    // Numbers of the keys on every PC keyboard under X.
    std::array<std::uint8_t, 3> m_keys{37, 64, 65};
};

QQuickWindow &overlay(const QQuickWindow &mainWindow)
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        auto *quickWindow = qobject_cast<QQuickWindow *>(window);
        if (quickWindow && quickWindow != &mainWindow && quickWindow->isVisible())
            return *quickWindow;
    }
    stop(u"there is no overlay"_s);
}

void measureAppearing(QQuickWindow &window, Frames &frames, int rounds)
{
    ContextOverlay::toggle();
    QQuickWindow &panel = overlay(window);
    Frames panelFrames(panel);
    panelFrames.waitUntilStill();
    ContextOverlay::toggle();

    QQuickWindow empty;
    empty.resize(window.size());
    QQuickWindow emptyPanel;
    emptyPanel.resize(panel.size());
    Frames emptyFrames(empty);
    Frames emptyPanelFrames(emptyPanel);
    for (QQuickWindow *one : {&empty, &emptyPanel}) {
        one->setColor(Qt::darkBlue);
        one->show();
    }
    emptyPanelFrames.waitUntilStill();
    for (QQuickWindow *one : {&window, &empty, &emptyPanel})
        one->hide();

    Keyboard keyboard;
    const auto sizeOf = [](const QQuickWindow &one) {
        return u"%1x%2"_s.arg(one.width()).arg(one.height());
    };
    out() << "sizes " << sizeOf(window) << ' ' << sizeOf(panel) << Qt::endl;
    for (int round = 0; round < rounds; ++round) {
        out() << "main window\t" << frames.after([&] { keyboard.press(); }) << Qt::endl;
        keyboard.release();
        frames.waitUntilStill();
        window.hide();
        out() << "empty window\t" << emptyFrames.after([&] { empty.show(); }) << Qt::endl;
        emptyFrames.waitUntilStill();
        empty.hide();
        out() << "overlay\t" << panelFrames.after([] { ContextOverlay::toggle(); }) << Qt::endl;
        panelFrames.waitUntilStill();
        ContextOverlay::toggle();
        out() << "empty panel\t" << emptyPanelFrames.after([&] { emptyPanel.show(); }) << Qt::endl;
        emptyPanelFrames.waitUntilStill();
        emptyPanel.hide();
    }
}

/// An empty window that was made before and hidden, with the renderer that Qt chooses.
void measureEmpty(const QSize &size, int rounds)
{
    QQuickWindow empty;
    empty.resize(size);
    empty.setColor(Qt::darkBlue);
    empty.show();
    Frames frames(empty);
    frames.after([&empty] { empty.update(); });
    out() << "renderer " << rendererName(empty) << Qt::endl;
    for (int round = 0; round < rounds; ++round) {
        frames.waitUntilStill();
        empty.hide();
        out() << "empty\t" << frames.after([&empty] { empty.show(); }) << Qt::endl;
    }
}

/// An application that notes how long its event loop waits for what it called.
class WatchedApplication final : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (m_depth > 0 || QThread::currentThread() != thread())
            return QApplication::notify(receiver, event);
        ++m_depth;
        const auto start = Clock::now();
        const bool isAccepted = QApplication::notify(receiver, event);
        m_longest = std::max(m_longest, Clock::now() - start);
        --m_depth;
        return isAccepted;
    }
    /// Milliseconds of the longest call since the last time this was asked.
    double takeLongest()
    {
        return std::chrono::duration<double, std::milli>(
                   std::exchange(m_longest, Clock::duration::zero()))
            .count();
    }

private:
    int m_depth = 0;
    Clock::duration m_longest = Clock::duration::zero();
};

void measureImport(
    WatchedApplication &application, AppModel &model, Frames &frames, std::int32_t process,
    const QString &name, int rounds)
{
    for (int round = 0; round < rounds; ++round) {
        model.setCustomShortcuts({});
        frames.waitUntilStill();
        if (model.activeAppPID() != process || model.activeApp() != name)
            stop(u"%1 is not in front"_s.arg(name));
        application.takeLongest();
        QEventLoop loop;
        QObject::connect(&model, &AppModel::isImportingChanged, &loop, [&model, &loop] {
            if (!model.isImporting())
                loop.quit();
        });
        model.importFrontmostMenu();
        loop.exec();
        frames.waitUntilStill();
        if (model.customShortcuts().isEmpty())
            stop(model.importMessage().value_or(QString()));
        out() << "longest\t" << application.takeLongest() << Qt::endl;
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(u"hmatnik"_s);
    WatchedApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    const QString what = arguments.value(1);

    if (what == u"empty"_s) {
        measureEmpty(
            QSize(arguments.value(2).toInt(), arguments.value(3).toInt()),
            arguments.value(4).toInt());
        return 0;
    }
    const platform::Desktop desktop = makeDesktop();
    if (what == u"keys"_s) {
        AppModel filler(desktop);
        filler.setCustomShortcuts(sampleShortcuts(arguments.value(2).toInt()));
        filler.saveCustomShortcuts();
    }
    {
        AppModel model(desktop);
        // Never asked: it is only there because the window has a place for its answer.
        UpdateChecker updateChecker(
            desktop.preferences,
            std::make_unique<ManifestProgram>(ManifestProgram::installedProgram()));
        MainWindow::setModel(model);
        MainWindow::setUpdateChecker(updateChecker);
        ContextOverlay::setModel(model);
        HotKeyCenter::install(*desktop.hotKeys);
        QQuickWindow &window = mainWindow();
        Frames frames(window);
        frames.after([&window] { window.update(); });
        out() << "renderer " << rendererName(window) << Qt::endl;
        if (what == u"keys"_s && model.customShortcuts().size() != arguments.value(2).toInt())
            stop(u"the store does not hold the shortcuts"_s);
        if (what == u"keys"_s)
            measureKeys(model, window, frames, arguments.value(3).toInt());
        else if (what == u"screens"_s)
            measureScreens(window, frames, arguments.value(2).toInt());
        else if (what == u"appear"_s)
            measureAppearing(window, frames, arguments.value(2).toInt());
        else if (what == u"import"_s)
            measureImport(
                application, model, frames, arguments.value(2).toInt(), arguments.value(3),
                arguments.value(4).toInt());
        else
            stop(u"what to measure?"_s);
        ContextOverlay::destroy();
        MainWindow::destroy();
        ViewsLoader::release();
    }
    return 0;
}
