#include "views/FrameMemory.h"

namespace hmatnik {

namespace {

constexpr Qt::WindowStates fillingStates = Qt::WindowMaximized | Qt::WindowFullScreen;

} // namespace

FrameMemory::FrameMemory(const QRect &normal, Qt::WindowStates filling)
    : m_normal(normal)
    , m_rested(normal)
    , m_filling(filling & fillingStates)
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
    // Minimised, it does not look as it will when it comes back.
    if (states & Qt::WindowMinimized)
        return;
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
}

} // namespace hmatnik
