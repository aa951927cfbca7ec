#pragma once

#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>

class QScreen;

namespace hmatnik {

/// Follows the desktop's screens: that they come, go, move, and change their size, their work area
/// or their scale.
class ScreenWatch final : public QObject
{
    Q_OBJECT

public:
    explicit ScreenWatch(QObject *parent = nullptr);

    /// The work areas of all screens, the main one first; may be empty.
    static QList<QRect> workAreas();

Q_SIGNALS:
    /// Once for all that changed at the same time.
    void changed();

private:
    void follow(const QScreen *screen);

    QTimer m_rest;
};

} // namespace hmatnik
