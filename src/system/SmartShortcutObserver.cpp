#include "system/SmartShortcutObserver.h"

#include <QPointer>

#include <utility>

using namespace Qt::StringLiterals;

namespace hmatnik {

namespace {

/// The attribute as text; empty if it can't be read or is none.
QString readText(const platform::AccessibleElement &element, QStringView name)
{
    const platform::AttributeResult result = element.attribute(name);
    const auto *text = std::get_if<QString>(&result.value);
    return result.error == 0 && text ? *text : QString();
}

} // namespace

SmartShortcutObserver::SmartShortcutObserver(
    std::shared_ptr<platform::MouseMonitor> mouseMonitor,
    std::shared_ptr<platform::Accessibility> accessibility, MenuAction onMenuAction)
    : m_mouseMonitor(std::move(mouseMonitor))
    , m_accessibility(std::move(accessibility))
    , m_onMenuAction(std::move(onMenuAction))
{
}

void SmartShortcutObserver::start()
{
    if (m_monitor || !m_accessibility->isTrusted())
        return;
    m_monitor = m_mouseMonitor->monitorLeftPresses(
        [observer = QPointer<SmartShortcutObserver>(this)](QPointF position) {
            if (!observer)
                return;
            // The look-up asks another process and may take a while; the monitor gets its answer
            // first. A look-up that is still queued ends with the observer.
            QMetaObject::invokeMethod(
                observer, [observer, position] { observer->inspectElement(position); },
                Qt::QueuedConnection);
        });
}

void SmartShortcutObserver::stop()
{
    m_monitor.cancel();
}

void SmartShortcutObserver::inspectElement(QPointF position) const
{
    const auto [error, element] = m_accessibility->elementAtPosition(
        static_cast<float>(position.x()), static_cast<float>(position.y()));
    if (error != 0 || !element)
        return;
    const QString role = readText(*element, u"AXRole");
    const QString title = readText(*element, u"AXTitle");
    if (role == "AXMenuItem"_L1 && !title.isEmpty())
        m_onMenuAction(title);
}

} // namespace hmatnik
