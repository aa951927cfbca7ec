#include "views/DestinationKeys.h"

#include <QKeyEvent>

namespace hmatnik {

namespace {

constexpr int rowsWithoutShift = 10;

std::optional<int> digit(const QKeyEvent &press, const platform::KeyboardLayout &layout)
{
    if (const std::optional<int> byPlace = layout.digit(press.nativeScanCode()))
        return byPlace;
    if (press.key() >= Qt::Key_0 && press.key() <= Qt::Key_9)
        return press.key() - Qt::Key_0;
    return std::nullopt;
}

} // namespace

std::optional<int> destinationRow(const QKeyEvent &press, const platform::KeyboardLayout &layout)
{
    const Qt::KeyboardModifiers held =
        press.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if ((held & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return std::nullopt;
    const std::optional<int> pressed = digit(press, layout);
    if (!pressed)
        return std::nullopt;
    const int row = *pressed == 0 ? rowsWithoutShift - 1 : *pressed - 1;
    return held.testFlag(Qt::ShiftModifier) ? row + rowsWithoutShift : row;
}

} // namespace hmatnik
