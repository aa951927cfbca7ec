#include "views/PanelPlacement.h"

namespace hmatnik {

QPoint PanelPlacement::topRight(const QRect &workArea, const QSize &panel)
{
    return {workArea.x() + workArea.width() - panel.width() - inset, workArea.y() + inset};
}

} // namespace hmatnik
