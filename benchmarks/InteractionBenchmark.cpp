// How long the real main window takes from what a person does to the next painted frame.
//
//     hmatnik_interaction_benchmark keys COUNT ROUNDS
//     hmatnik_interaction_benchmark screens ROUNDS
//
// `keys` puts COUNT custom shortcuts into the store, starts on it as the program does, and types
// words into the search field; one line "key LETTERS<tab>MILLISECONDS" for each key. `screens` goes
// from every screen to every other; one line "switch FROM > TO<tab>MILLISECONDS" for each step.
// Both say first "renderer NAME". The store is that of the environment, so give it one of its own.

#include "SampleShortcuts.h"
#include "app/DesktopAdapters.h"
#include "app/MainWindow.h"
#include "app/ViewsLoader.h"
#include "model/AppModel.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTextStream>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>

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

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName(u"hmatnik"_s);
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    const QString what = arguments.value(1);

    const platform::Desktop desktop = makeDesktop();
    if (what == u"keys"_s) {
        AppModel filler(desktop);
        filler.setCustomShortcuts(sampleShortcuts(arguments.value(2).toInt()));
        filler.saveCustomShortcuts();
    }
    {
        AppModel model(desktop);
        MainWindow::setModel(model);
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
        else
            stop(u"what to measure?"_s);
        MainWindow::destroy();
        ViewsLoader::release();
    }
    return 0;
}
