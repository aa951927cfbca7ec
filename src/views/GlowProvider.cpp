#include "views/GlowProvider.h"

#include "views/GlowImage.h"

namespace hmatnik {

GlowProvider::GlowProvider()
    : QQuickImageProvider(QQuickImageProvider::Image)
{
}

QImage GlowProvider::requestImage(const QString &id, QSize *size, const QSize &)
{
    const QStringList parts = id.split(u'/');
    if (parts.size() != 3)
        return {};
    QImage image = GlowImage::blurredDisc(
        parts.at(0).toDouble(), parts.at(1).toDouble(), QColor(u'#' + parts.at(2)));
    if (size)
        *size = image.size();
    return image;
}

} // namespace hmatnik
