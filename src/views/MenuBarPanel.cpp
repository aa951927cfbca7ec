#include "views/MenuBarPanel.h"

#include "views/DismissFirst.h"
#include "views/MenuBarPlacement.h"
#include "views/WindowActivation.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

namespace hmatnik {

using namespace Qt::StringLiterals;

namespace {

constexpr double cornerRadius = 12;

// Pressing the icon can take the keyboard from the window, which closes it before the icon reports
// its click: that click has closed it, and is not to open it again. Longer than a click lasts.
constexpr qint64 clickMilliseconds = 400;

const QScreen *screenAt(const QPoint &position)
{
    const QScreen *screen = QGuiApplication::screenAt(position);
    return screen ? screen : QGuiApplication::primaryScreen();
}

} // namespace

MenuBarPanel::MenuBarPanel(ViewsContext &context, AppModel &model, const ShellActions &actions)
    : TipsPanel(context, model, cornerRadius)
    , m_workspace(model.desktop().workspace)
{
    setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    load(u"MenuBarView.qml"_s, dismissFirst(actions, [this] { hide(); }));
}

void MenuBarPanel::toggleBeside(const QRect &icon)
{
    if (isVisible())
        hide();
    else if (!m_sinceFocusLoss.isValid() || m_sinceFocusLoss.hasExpired(clickMilliseconds))
        present(icon);
}

void MenuBarPanel::present(const QRect &icon)
{
    if (icon.isEmpty()) {
        const QPoint pointer = QCursor::pos();
        if (const QScreen *screen = screenAt(pointer))
            setPosition(
                MenuBarPlacement::nearPointer(pointer, screen->availableGeometry(), contentSize()));
    } else if (const QScreen *screen = screenAt(icon.center())) {
        setPosition(MenuBarPlacement::besideIcon(icon, screen->availableGeometry(), contentSize()));
    }
    show();
    activate(*this, *m_workspace);
}

/// Its icon may be anywhere now: the window stays, and on a screen. A change of scale closes it, as
/// whatever else lets go of it.
void MenuBarPanel::followScreens(bool isScaled)
{
    const QScreen *screen = screenAt(geometry().center());
    if (!isScaled && screen)
        setPosition(
            MenuBarPlacement::onScreen(QRect(position(), size()), screen->availableGeometry()));
}

void MenuBarPanel::focusOutEvent(QFocusEvent *event)
{
    TipsPanel::focusOutEvent(event);
    // Closing it otherwise takes the keyboard away as well.
    if (!isVisible())
        return;
    m_sinceFocusLoss.start();
    hide();
}

void MenuBarPanel::keyPressEvent(QKeyEvent *event)
{
    TipsPanel::keyPressEvent(event);
    if (!event->isAccepted() && event->matches(QKeySequence::Cancel))
        hide();
}

} // namespace hmatnik
