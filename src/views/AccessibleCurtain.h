#pragma once

#include <QQuickItem>
#include <QtQmlIntegration>

namespace hmatnik {

/// Holds a part of a window that a sheet can cover. While the curtain is drawn, assistive
/// technologies find nothing inside: to them a disabled item would still be a part of the window
/// that can be read and acted on.
class AccessibleCurtain : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool drawn READ isDrawn WRITE setDrawn NOTIFY drawnChanged)

public:
    explicit AccessibleCurtain(QQuickItem *parent = nullptr);

    bool isDrawn() const { return m_drawn; }
    void setDrawn(bool drawn);

Q_SIGNALS:
    void drawnChanged();

private:
    bool m_drawn = false;
};

} // namespace hmatnik
