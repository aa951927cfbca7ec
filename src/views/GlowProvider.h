#pragma once

#include <QQuickImageProvider>

namespace hmatnik {

/// Serves GlowImage::blurredDisc as "image://glow/<diameter>/<blur radius>/<aarrggbb>".
class GlowProvider : public QQuickImageProvider
{
public:
    GlowProvider();

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override;
};

} // namespace hmatnik
