import QtQuick
import Hmatnik

// A ground that what lies behind shines through. No desktop of ours blurs what is behind a window,
// so the material is a tint over the window's own backdrop. It looks the same whether the window is
// active or not.
Rectangle {
    id: root

    enum Material {
        Sidebar
    }

    required property int material

    color: {
        switch (root.material) {
        case VisualEffectView.Sidebar:
            return Theme.sidebar;
        }
        return "transparent";
    }
    Accessible.ignored: true
}
