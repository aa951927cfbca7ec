#include "views/TopBarLayout.h"

#include <algorithm>
#include <numeric>

namespace hmatnik {

QList<double>
TopBarLayout::widths(double room, const QList<double> &natural, const QList<double> &least)
{
    QList<double> widths = natural;
    double excess = std::accumulate(natural.begin(), natural.end(), -room);
    for (qsizetype part = 0; part < widths.size() && excess > 0; ++part) {
        const double given = std::min(excess, std::max(0.0, natural.at(part) - least.at(part)));
        widths[part] -= given;
        excess -= given;
    }
    return widths;
}

} // namespace hmatnik
