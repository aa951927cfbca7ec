#pragma once

#include <QPoint>
#include <QPointF>
#include <QRect>

#include <optional>

namespace hmatnik::platform {

/// How the units in which a program tells places lie on the screen. On a scaled desktop toolkits
/// tell them in units of their layout, each several pixels large, some by a whole number (GTK),
/// some by any (Qt). The window of an open menu, whose pixels the window system knows, tells by
/// which.
class MenuUnits
{
public:
    /// @param menu where the program says that the menu is
    /// @param isWhole whether that is the menu itself; else it is what stands in it, around which
    ///        there may be an edge
    /// @param window of a menu on the screen, in pixels
    /// @return none if that window can't be this menu's
    static std::optional<MenuUnits> of(const QRect &menu, bool isWhole, const QRect &window);

    /// The place in the program's units of a pixel of the screen.
    QPoint fromPixels(QPoint pixel) const;
    /// How far the edges lie apart, in pixels, if the program counts from the screen's corner: of
    /// two menus the one of the window has the smaller number.
    double misfit() const { return m_misfit; }

private:
    MenuUnits(double scale, QPointF origin, double misfit)
        : m_scale(scale)
        , m_origin(origin)
        , m_misfit(misfit)
    {
    }

    /// Pixels of a unit.
    double m_scale;
    /// The pixel at which the program's coordinates begin.
    QPointF m_origin;
    double m_misfit;
};

} // namespace hmatnik::platform
