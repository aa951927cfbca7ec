#include "views/Announcer.h"

#include <QAccessible>
#include <QMetaObject>

namespace hmatnik {

void Announcer::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    Q_EMIT textChanged();
    // Said once the item shows it.
    if (!m_text.isEmpty())
        QMetaObject::invokeMethod(this, &Announcer::announce, Qt::QueuedConnection);
}

void Announcer::setSource(QQuickItem *source)
{
    if (source == m_source)
        return;
    m_source = source;
    Q_EMIT sourceChanged();
}

void Announcer::announce() const
{
    if (!m_source || !m_source->isVisible() || m_text.isEmpty())
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(m_source, m_text);
#else
    // An older toolkit has no announcements; a message that comes to be shown is read out as well.
    QAccessibleEvent event(m_source, QAccessible::ObjectShow);
#endif
    QAccessible::updateAccessibility(&event);
}

} // namespace hmatnik
