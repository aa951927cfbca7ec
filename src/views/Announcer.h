#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQmlIntegration>

namespace hmatnik {

/// Has assistive technologies say a text when it comes up: what a person who sees the screen
/// notices by itself.
class Announcer : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged REQUIRED)
    Q_PROPERTY(QQuickItem *source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)

public:
    using QObject::QObject;

    /// What is said as soon as it changes; nothing while it is empty.
    QString text() const { return m_text; }
    void setText(const QString &text);
    /// The item that shows the text; its role is that of a message or a notification.
    QQuickItem *source() const { return m_source; }
    void setSource(QQuickItem *source);

Q_SIGNALS:
    void textChanged();
    void sourceChanged();

private:
    void announce() const;

    QString m_text;
    QPointer<QQuickItem> m_source;
};

} // namespace hmatnik
