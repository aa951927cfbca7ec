import QtQuick

// A colour that nothing else on the screen has, so that an observer knows it when it is there.
Rectangle {
    color: "#336699"
}
