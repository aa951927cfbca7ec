#include "views/LoneModifierTaps.h"

#include <utility>

namespace hmatnik {

void LoneModifierTaps::press(int key, bool modifier, bool others)
{
    if (!modifier || others) {
        reset();
        return;
    }
    m_down = key;
    if (m_tapped != key)
        m_tapped = 0;
}

bool LoneModifierTaps::release(int key, quint64 time)
{
    if (std::exchange(m_down, 0) != key) {
        reset();
        return false;
    }
    if (m_tapped == key && time - m_tappedAt <= longestPause) {
        reset();
        return true;
    }
    m_tapped = key;
    m_tappedAt = time;
    return false;
}

void LoneModifierTaps::reset()
{
    m_down = 0;
    m_tapped = 0;
}

} // namespace hmatnik
