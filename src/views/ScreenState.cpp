#include "views/ScreenState.h"

namespace hmatnik {

void ScreenState::setModel(AppModel *model)
{
    if (m_model || !model)
        return;
    m_model = model;
    follow(*model);
    Q_EMIT changed();
}

} // namespace hmatnik
