#include "views/FrameMemory.h"

namespace hmatnik {

namespace {

constexpr Qt::WindowStates fillingStates = Qt::WindowMaximized | Qt::WindowFullScreen;

} // namespace

FrameMemory::FrameMemory(const QRect &normal, Qt::WindowStates filling)
    : m_normal(normal)
    , m_rested(normal)
    , m_filling(filling & fillingStates)
    , m_restedFilling(m_filling)
{
}

void FrameMemory::place(const QRect &normal)
{
    m_normal = normal;
    m_rested = normal;
}

void FrameMemory::moved(const QRect &frame, Qt::WindowStates states)
{
    if (states == Qt::WindowNoState)
        m_normal = frame;
}

void FrameMemory::changed(Qt::WindowStates states)
{
    if (states & Qt::WindowMinimized) {
        // On the way some window managers end what makes the window fill the screen, and make it so
        // again once it is gone, or never: only what is told in addition counts.
        if (m_restedFilling && !m_filling)
            m_normal = m_rested;
        m_filling |= m_restedFilling | (states & fillingStates);
        return;
    }
    const Qt::WindowStates filling = states & fillingStates;
    // Some window managers first give the window the size of the screen and then tell why: what
    // was told since the last rest need not be where the person had put it.
    if (filling && !m_filling)
        m_normal = m_rested;
    m_filling = filling;
}

void FrameMemory::rested(const QRect &frame, Qt::WindowStates states)
{
    moved(frame, states);
    m_rested = m_normal;
    m_restedFilling = m_filling;
}

} // namespace hmatnik
