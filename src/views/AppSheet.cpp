#include "views/AppSheet.h"

namespace hmatnik {

using namespace Qt::StringLiterals;

QString rawValue(AppSheet sheet)
{
    return sheet == AppSheet::settings ? u"settings"_s : u"add"_s;
}

} // namespace hmatnik
