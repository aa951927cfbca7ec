#pragma once

#include <QtGlobal>

namespace hmatnik {

/// Notices that a modifier key was tapped twice in a row with nothing else pressed. That is no
/// combination of any shortcut, so it is free to lead out of a place that takes all the others.
class LoneModifierTaps
{
public:
    /// Longest time between the two taps, in milliseconds.
    static constexpr quint64 longestPause = 600;

    /// A key went down. Times are in milliseconds, from any starting point.
    /// @param modifier whether the key is a modifier
    /// @param others whether other modifiers are held
    void press(int key, bool modifier, bool others);
    /// A key went up; true if this ends the second tap.
    [[nodiscard]] bool release(int key, quint64 time);
    /// Forgets what happened so far.
    void reset();

private:
    /// The modifier that is down alone; 0 if there is none.
    int m_down = 0;
    /// The modifier that was tapped last, with nothing pressed since; 0 if there is none.
    int m_tapped = 0;
    quint64 m_tappedAt = 0;
};

} // namespace hmatnik
