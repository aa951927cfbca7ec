#pragma once

#include <QRect>
#include <Qt>

namespace hmatnik {

/// Where a window belongs and whether it fills the screen, as the person has left it, whatever the
/// window manager tells while the window is minimised or hidden.
class FrameMemory
{
public:
    /// @param normal where it is, or would be if it did not fill the screen
    explicit FrameMemory(const QRect &normal = {}, Qt::WindowStates filling = {});

    /// Where it is, or would be if it did not fill the screen.
    const QRect &normal() const { return m_normal; }
    /// WindowMaximized, WindowFullScreen, both or neither.
    Qt::WindowStates filling() const { return m_filling; }

    /// We have placed it ourselves.
    void place(const QRect &normal);
    /// The window, visible and in these states, is told to have this frame.
    void moved(const QRect &frame, Qt::WindowStates states);
    /// The window is visible and now in these states.
    void changed(Qt::WindowStates states);
    /// It has this frame, and nothing has been told for a while.
    void rested(const QRect &frame, Qt::WindowStates states);

private:
    QRect m_normal;
    /// The same, as of the last rest.
    QRect m_rested;
    Qt::WindowStates m_filling;
    Qt::WindowStates m_restedFilling;
};

} // namespace hmatnik
