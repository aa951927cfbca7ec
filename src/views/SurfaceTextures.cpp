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
SurfaceTextures::texture(const SurfaceLook &look, const QSizeF &size, double devicePixelRatio)
{
    const QSizeF drawn = SurfaceImage::drawnSize(look, size);
    std::shared_ptr<QSGTexture> &texture = m_textures[Key{look, drawn, devicePixelRatio}];
    if (!texture) {
        texture.reset(m_window.createTextureFromImage(
            SurfaceImage::draw(look, drawn, devicePixelRatio),
            QQuickWindow::TextureHasAlphaChannel));
        texture->setFiltering(QSGTexture::Linear);
    }
    return texture.get();
}

} // namespace hmatnik
