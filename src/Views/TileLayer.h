#pragma once

#include <QHash>
#include <QImage>
#include <QQuickItem>
#include <QSet>

#include <functional>

namespace corvane {

/// A surface larger than its window, drawn from pictures that are painted once and then only moved.
///
/// A picture goes by its content: tiles of the same content share one, however many there are, and a tile is
/// painted again only when its content is one that hasn't been seen lately. Draws with OpenGL and in software
/// alike. Main thread.
class TileLayer : public QQuickItem {
public:
    struct Tile {
        /// Everything that the picture depends on, apart from what `restart` was called for.
        QString content;
        /// In device pixels from the layer's corner, so that pictures are never resampled.
        QPoint position;
        bool operator==(const Tile&) const = default;
    };
    /// Paints the picture of a tile.
    using Paint = std::function<QImage()>;

    explicit TileLayer(QQuickItem* parent);

    /// Forgets all pictures: colours, sizes or resolution are others from now on.
    void restart();

    /// Starts the next frame; what is not added again is no longer shown.
    void begin();
    /// `paint` is only called for a content that has no picture yet, and must return an image with the device
    /// pixel ratio set.
    void add(const Tile& tile, const Paint& paint);
    void end();

    /// How many pictures have been painted since the layer exists.
    [[nodiscard]] qint64 paintedCount() const { return m_paintedCount; }

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;

private:
    void forgetUnused();

    QList<Tile> m_tiles;
    QList<Tile> m_shown;
    QHash<QString, QImage> m_images;
    bool m_isStale = false;
    int m_generation = 0;
    qint64 m_paintedCount = 0;
};

} // namespace corvane
