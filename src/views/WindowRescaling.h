#pragma once

#include <QQuickWindow>

namespace hmatnik {

/// Makes a window's native part anew, because the scale of its screen has changed: the toolkit
/// would draw everything in the new scale into the old number of pixels. Leaves the window hidden.
/// @param frame where the window belongs, in layout units of the new scale
inline void makeForNewScale(QQuickWindow &window, const QRect &frame)
{
    window.hide();
    window.destroy();
    // The software renderer keeps its picture for as long as the size in layout units is the same.
    window.setGeometry(frame.adjusted(0, 0, 1, 0));
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&window, size = frame.size()] {
            if (window.windowState() == Qt::WindowNoState && window.size() == size + QSize(1, 0))
                window.resize(size);
        },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

} // namespace hmatnik
