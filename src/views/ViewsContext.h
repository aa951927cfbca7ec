#pragma once

#include "platform/Appearance.h"
#include "views/Theme.h"

#include <QQmlEngine>

namespace hmatnik {

/// What every window of the process shares: the QML engine with its image provider, and the theme.
class ViewsContext
{
public:
    explicit ViewsContext(const std::shared_ptr<platform::Appearance> &appearance);

    QQmlEngine *engine() { return &m_engine; }
    Theme &theme() { return m_theme; }

private:
    // The engine goes first: its objects read the theme.
    Theme m_theme;
    QQmlEngine m_engine;
};

} // namespace hmatnik
