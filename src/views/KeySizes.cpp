#include "views/KeySizes.h"

#include "views/VisualKeyboard.h"

#include <algorithm>
#include <cmath>

namespace hmatnik {

KeySizes::KeySizes(double width, double devicePixelRatio, KeyStyle style)
{
    const auto pixels = [devicePixelRatio](double length) {
        return std::round(length * devicePixelRatio);
    };
    double key = pixels(VisualKeyboard::keyWidth);
    double spaceBar = pixels(VisualKeyboard::spaceBarWidth);
    const double spacing = pixels(VisualKeyboard::keySpacing);

    const double room = std::floor(width * devicePixelRatio);
    for (const QStringList &row : VisualKeyboard::rows(style)) {
        const auto bars = static_cast<double>(row.count(VisualKeyboard::spaceBar));
        const double keys = static_cast<double>(row.size()) - bars;
        const double gaps = static_cast<double>(row.size() - 1) * spacing;
        const double wanted = keys * key + bars * spaceBar;
        if (wanted + gaps <= room || wanted == 0)
            continue;
        const double share = std::max(0.0, room - gaps) / wanted;
        // Whole pixels for every key; the space bar takes what that leaves.
        key = bars > 0 ? std::round(key * share) : std::floor(key * share);
        if (bars > 0)
            spaceBar = std::max(key, std::floor((room - gaps - keys * key) / bars));
    }
    keyWidth = key / devicePixelRatio;
    spaceBarWidth = spaceBar / devicePixelRatio;
    keyHeight = pixels(VisualKeyboard::keyHeight) / devicePixelRatio;
    keySpacing = spacing / devicePixelRatio;
    rowSpacing = pixels(VisualKeyboard::rowSpacing) / devicePixelRatio;
}

double KeySizes::width(const QString &label) const
{
    return label == VisualKeyboard::spaceBar ? spaceBarWidth : keyWidth;
}

} // namespace hmatnik
