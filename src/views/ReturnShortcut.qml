import QtQuick

// Return, wherever in the window the keyboard is. A shortcut, because it acts before the control
// that has the keyboard: on some desktops the toolkit lets Return press a button, as Space does.
// A control that needs Return itself for a moment claims it by accepting the shortcut's override.
Shortcut {
    sequences: ["Return", "Enter"]
    // A key that opened what it would close again, and is still down, must not act at once.
    autoRepeat: false
}
