#pragma once

#include "Views/Grid/GridTile.h"

#include <QHash>
#include <QImage>
#include <QPoint>
#include <QQuickItem>

#include <functional>

namespace corvane {

/// A surface larger than its window, drawn from tiles whose pictures are painted once and then only moved.
///
/// Equal tiles share one picture, and a tile is painted only if no equal one has been shown lately. Draws the
/// same with OpenGL and in software. Main thread.
class TileLayer : public QQuickItem {
public:
    /// Paints the picture of a tile; the image has its device pixel ratio set.
    using Paint = std::function<QImage(const GridTile& tile)>;
    /// A picture by its number, which is never used again for another one.
    using Picture = quint64;
    struct Placed {
        Picture picture = 0;
        /// In device pixels from the layer's corner, so that pictures are never resampled.
        QPoint position;
        bool operator==(const Placed&) const = default;
    };

    TileLayer(QQuickItem* parent, Paint paint);

    /// Drops all pictures, because colours, sizes or resolution have changed. The next frame must follow
    /// before anything is drawn.
    void restart();

    /// Starts the next frame; what is not added again is no longer shown.
    void begin();
    void add(const GridTile& tile, QPoint position);
    void end();

    /// How many pictures have been painted since the layer exists.
    [[nodiscard]] qint64 paintedCount() const { return qint64(m_lastPicture); }

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    [[nodiscard]] Picture pictureOf(const GridTile& tile);
    void dropUnused();

    const Paint m_paint;
    QList<Placed> m_next;
    QList<Placed> m_shown;
    QHash<GridTile, Picture> m_pictures;
    QHash<Picture, QImage> m_images;
    Picture m_lastPicture = 0;
};

} // namespace corvane
