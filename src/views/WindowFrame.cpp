#include "views/WindowFrame.h"

#include <QStringList>

#include <algorithm>

namespace hmatnik::WindowFrame {

namespace {

qint64 area(const QRect &rect)
{
    return rect.isEmpty() ? 0 : static_cast<qint64>(rect.width()) * rect.height();
}

/// The screen that shows most of the frame; the main one if none shows any.
QRect screenOf(const QRect &frame, const QList<QRect> &screens)
{
    return *std::ranges::max_element(
        screens, {}, [&frame](const QRect &screen) { return area(screen & frame); });
}

} // namespace

QString toText(const QRect &frame)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(frame.x())
        .arg(frame.y())
        .arg(frame.width())
        .arg(frame.height());
}

std::optional<QRect> fromText(const QString &text)
{
    const QStringList parts = text.split(u' ');
    if (parts.size() != 4)
        return std::nullopt;
    // Beyond any screen there is; keeps sums of the numbers within range.
    constexpr int farthest = 1'000'000;
    int numbers[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        numbers[i] = parts.at(i).toInt(&ok);
        if (!ok || numbers[i] < -farthest || numbers[i] > farthest)
            return std::nullopt;
    }
    if (numbers[2] <= 0 || numbers[3] <= 0)
        return std::nullopt;
    return QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
}

QRect opening(const std::optional<QRect> &saved, const QList<QRect> &screens)
{
    if (screens.isEmpty())
        return saved ? QRect(saved->topLeft(), saved->size().expandedTo(minimumSize))
                     : QRect(QPoint(0, 0), firstSize);
    QRect frame;
    QRect screen;
    if (saved) {
        screen = screenOf(*saved, screens);
        frame =
            QRect(saved->topLeft(), saved->size().boundedTo(screen.size()).expandedTo(minimumSize));
    } else {
        screen = screens.first();
        frame = QRect(QPoint(0, 0), firstSize);
        frame.moveCenter(screen.center());
    }
    // Where the window is larger than the screen, its top left corner is what must be seen.
    const int rightmost = std::max(screen.left(), screen.right() - frame.width() + 1);
    const int lowest = std::max(screen.top(), screen.bottom() - frame.height() + 1);
    frame.moveTo(
        std::clamp(frame.left(), screen.left(), rightmost),
        std::clamp(frame.top(), screen.top(), lowest));
    return frame;
}

QRect keptVisible(const QRect &frame, const QList<QRect> &screens)
{
    if (screens.isEmpty() || 2 * area(frame & screenOf(frame, screens)) >= area(frame))
        return frame;
    return opening(frame, screens);
}

} // namespace hmatnik::WindowFrame
