#pragma once

#include <QQuickWindow>

namespace hmatnik {

/// By how much a window is larger until it is painted in a new scale, in layout units.
inline constexpr QSize spareColumn(1, 0);

/// Makes a window's native part anew, because the scale of its screen has changed: the toolkit
/// would draw everything in the new scale into the old number of pixels. Leaves the window hidden.
/// @param frame where the window belongs, in layout units of the new scale
/// @return whether it is larger by a spare column, and will be until it has been painted.
inline bool makeForNewScale(QQuickWindow &window, const QRect &frame)
{
    const bool fillsScreen = window.windowState() != Qt::WindowNoState;
    window.hide();
    window.destroy();
    if (fillsScreen) {
        window.setGeometry(frame);
        return false;
    }
    // The software renderer keeps its picture for as long as the size in layout units is the same;
    // that of a window that fills the screen changes with the scale.
    window.setGeometry(QRect(frame.topLeft(), frame.size() + spareColumn));
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&window, size = frame.size()] {
            if (window.windowState() == Qt::WindowNoState && window.size() == size + spareColumn)
                window.resize(size);
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    return true;
}

} // namespace hmatnik
