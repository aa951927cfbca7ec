#include "views/SheetState.h"

namespace hmatnik {

void SheetState::setSheet(std::optional<AppSheet> sheet)
{
    if (sheet == m_sheet)
        return;
    m_sheet = sheet;
    setHasInput(false);
    if (m_sheet)
        m_isScreenAwaited = false;
    Q_EMIT changed();
}

void SheetState::setHasInput(bool hasInput)
{
    if (hasInput == m_hasInput)
        return;
    m_hasInput = hasInput;
    Q_EMIT hasInputChanged();
}

void SheetState::makeWay()
{
    if (!m_sheet)
        return;
    m_isScreenAwaited = true;
    if (!m_hasInput)
        dismiss();
}

} // namespace hmatnik
