#include "system/MenuImportError.h"

using namespace Qt::StringLiterals;

namespace hmatnik {

QString localizedDescription(MenuImportError error)
{
    switch (error) {
    case MenuImportError::permission:
        return u"Pro import povolte Hmatníku Zpřístupnění v Nastavení systému."_s;
    case MenuImportError::application:
        return u"Aktivní aplikaci se nepodařilo načíst. Přepněte do ní a zkuste import znovu."_s;
    case MenuImportError::menu:
        return u"Menu aktivní aplikace není dostupné nebo neobsahuje zkratky."_s;
    }
    Q_UNREACHABLE();
    return {};
}

} // namespace hmatnik
