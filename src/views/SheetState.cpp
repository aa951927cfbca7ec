#include "views/SheetState.h"

namespace hmatnik {

void SheetState::setSheet(std::optional<AppSheet> sheet)
{
    if (sheet == m_sheet)
        return;
    m_sheet = sheet;
    Q_EMIT changed();
}

} // namespace hmatnik
