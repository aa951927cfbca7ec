#pragma once

#include <QString>

namespace hmatnik {

/// Texts of the menu-bar window that its tray menu shares.
namespace TipsTexts {

inline QString header(const QString &activeApp)
{
    return QStringLiteral("Tipy pro ") + activeApp;
}

inline QString showOverlay(const QString &activeApp)
{
    return QStringLiteral("Zobrazit overlay pro ") + activeApp;
}

inline QString openLibrary()
{
    return QStringLiteral("Otevřít knihovnu");
}

inline QString quit()
{
    return QStringLiteral("Ukončit");
}

} // namespace TipsTexts

} // namespace hmatnik
