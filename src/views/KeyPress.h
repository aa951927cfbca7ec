#pragma once

#include <QString>

namespace hmatnik {

/// One press of a key that is no modifier, as far as naming it needs.
struct KeyPress
{
    /// Keys that are named by what they do, not by what they write.
    enum class SpecialKey {
        none,
        backspace,
        tab,
        leftArrow,
        rightArrow,
        upArrow,
        downArrow,
        escape,
        enter,
        forwardDelete,
        insert,
        home,
        end,
        pageUp,
        pageDown,
        function
    };

    // Modifiers held.
    bool control = false;
    bool option = false;
    bool shift = false;
    bool command = false;

    SpecialKey specialKey = SpecialKey::none;
    /// Number of a function key: 11 for F11.
    int functionNumber = 0;
    /// What the key writes with no modifier held; empty if nothing.
    QString characters;
    /// What it writes with Shift alone.
    QString shiftedCharacters;
    /// Whether the key is the desktop's and thus part of no combination.
    bool isForDesktop = false;
};

} // namespace hmatnik
