#include "views/SurfaceTextures.h"

#include <QQuickWindow>

namespace hmatnik {

SurfaceTextures &SurfaceTextures::of(QQuickWindow &window)
{
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    static QHash<QQuickWindow *, SurfaceTextures *> stores;
    SurfaceTextures *&store = stores[&window];
    if (!store) {
        store = new SurfaceTextures(window);
        QObject::connect(&window, &QObject::destroyed, store, [&window] {
            const std::scoped_lock destroyedLock(mutex);
            delete stores.take(&window);
        });
    }
    return *store;
}

SurfaceTextures::SurfaceTextures(QQuickWindow &window)
    : m_window(window)
{
    moveToThread(window.thread());
    connect(
        &window, &QQuickWindow::sceneGraphInvalidated, this, [this] { m_textures.clear(); },
        Qt::DirectConnection);
}

QSGTexture *
SurfaceTextures::texture(const SurfaceLook &look, const QSize &size, double devicePixelRatio)
{
    const QSize drawn = SurfaceImage::drawnSize(look, size, devicePixelRatio);
    std::shared_ptr<QSGTexture> &texture = m_textures[Key{look, drawn, devicePixelRatio}];
    if (!texture) {
        texture.reset(m_window.createTextureFromImage(
            SurfaceImage::draw(look, drawn, devicePixelRatio),
            QQuickWindow::TextureHasAlphaChannel));
        texture->setFiltering(QSGTexture::Nearest);
    }
    return texture.get();
}

} // namespace hmatnik
