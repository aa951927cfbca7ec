#pragma once

#include "views/SurfaceImage.h"

#include <QHash>
#include <QObject>
#include <QSGTexture>

#include <memory>
#include <mutex>

QT_BEGIN_NAMESPACE
class QQuickWindow;
QT_END_NAMESPACE

namespace hmatnik {

/// The textures that the surfaces of one window share. Used on the window's render thread.
class SurfaceTextures : public QObject
{
    Q_OBJECT

public:
    /// The store of a window; made at first use, gone with the window.
    static SurfaceTextures &of(QQuickWindow &window);

    /// The texture of a surface of the given size in pixels; lives until the window's scene graph
    /// goes.
    QSGTexture *texture(const SurfaceLook &look, const QSize &size, double devicePixelRatio);

private:
    explicit SurfaceTextures(QQuickWindow &window);

    struct Key
    {
        SurfaceLook look;
        QSize size;
        double devicePixelRatio = 1;

        bool operator==(const Key &other) const = default;
        friend size_t qHash(const Key &key, size_t seed = 0) noexcept
        {
            return qHashMulti(
                seed, key.look, key.size.width(), key.size.height(), key.devicePixelRatio);
        }
    };

    QQuickWindow &m_window;
    QHash<Key, std::shared_ptr<QSGTexture>> m_textures;
};

} // namespace hmatnik
