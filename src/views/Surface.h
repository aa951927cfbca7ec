#pragma once

#include "views/SurfaceImage.h"

#include <QQuickItem>
#include <QtQmlIntegration>

namespace hmatnik {

/// A rounded translucent surface with stroke and shadow: the ground of cards, buttons, pills and
/// key caps. Its shadow reaches beyond the item. Drawn on whole pixels of the screen, wherever the
/// item lies. One shared texture a look.
class Surface : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY lookChanged)
    Q_PROPERTY(QColor fill READ fill WRITE setFill NOTIFY lookChanged)
    Q_PROPERTY(QColor stroke READ stroke WRITE setStroke NOTIFY lookChanged)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY lookChanged)
    Q_PROPERTY(QColor edgeShadow READ edgeShadow WRITE setEdgeShadow NOTIFY lookChanged)
    Q_PROPERTY(QColor wideShadow READ wideShadow WRITE setWideShadow NOTIFY lookChanged)
    Q_PROPERTY(double wideShadowBlur READ wideShadowBlur WRITE setWideShadowBlur NOTIFY lookChanged)
    Q_PROPERTY(
        double wideShadowOffset READ wideShadowOffset WRITE setWideShadowOffset NOTIFY lookChanged)

public:
    explicit Surface(QQuickItem *parent = nullptr);

    double radius() const { return m_look.radius; }
    void setRadius(double radius) { assign(m_look.radius, radius); }
    QColor fill() const { return m_look.fill; }
    void setFill(const QColor &color) { assign(m_look.fill, color); }
    QColor stroke() const { return m_look.stroke; }
    void setStroke(const QColor &color) { assign(m_look.stroke, color); }
    double strokeWidth() const { return m_look.strokeWidth; }
    void setStrokeWidth(double width) { assign(m_look.strokeWidth, width); }
    QColor edgeShadow() const { return m_look.edgeShadow; }
    void setEdgeShadow(const QColor &color) { assign(m_look.edgeShadow, color); }
    QColor wideShadow() const { return m_look.wideShadow; }
    void setWideShadow(const QColor &color) { assign(m_look.wideShadow, color); }
    double wideShadowBlur() const { return m_look.wideShadowBlur; }
    void setWideShadowBlur(double blur) { assign(m_look.wideShadowBlur, blur); }
    double wideShadowOffset() const { return m_look.wideShadowOffset; }
    void setWideShadowOffset(double offset) { assign(m_look.wideShadowOffset, offset); }

Q_SIGNALS:
    void lookChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *data) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;

private:
    template <typename T>
    void assign(T &field, const T &value)
    {
        if (field == value)
            return;
        field = value;
        m_lookDirty = true;
        update();
        Q_EMIT lookChanged();
    }

    SurfaceLook m_look;
    bool m_lookDirty = true;
};

} // namespace hmatnik
