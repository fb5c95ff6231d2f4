#include "Views/TileLayer.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTransformNode>

#include <memory>
#include <unordered_map>

namespace corvane {

namespace {

/// The layer in the scene: one image node a tile, and the textures that they share. Lives where the scene is
/// rendered.
///
/// It transforms nothing, but the software renderer knows the place and the clip of nodes that are added
/// later only if their parent is one of the kinds that it keeps a state for.
class LayerNode final : public QSGTransformNode {
public:
    void show(
        QQuickWindow& window, const QList<TileLayer::Tile>& tiles, const QHash<QString, QImage>& images);
    void restart(int generation);

private:
    void place(QQuickWindow& window, qsizetype position, QSGTexture& texture, const QRectF& rect);
    QSGTexture* texture(QQuickWindow& window, const QString& content, const QImage& image);

    // Shared by the nodes, so none of them owns its own.
    std::unordered_map<QString, std::unique_ptr<QSGTexture>> m_textures;
    QList<QSGImageNode*> m_nodes;
    int m_generation = 0;
};

void LayerNode::restart(int generation)
{
    if (m_generation == generation)
        return;
    m_generation = generation;
    qDeleteAll(m_nodes);
    m_nodes.clear();
    m_textures.clear();
}

void LayerNode::show(
    QQuickWindow& window, const QList<TileLayer::Tile>& tiles, const QHash<QString, QImage>& images)
{
    while (m_nodes.size() > tiles.size())
        delete m_nodes.takeLast();
    for (qsizetype i = 0; i < tiles.size(); ++i) {
        const QImage& image = *images.constFind(tiles[i].content);
        const QRectF rect(
            QPointF(tiles[i].position) / image.devicePixelRatio(), image.deviceIndependentSize());
        place(window, i, *texture(window, tiles[i].content, image), rect);
    }
    std::erase_if(m_textures, [&](const auto& entry) { return !images.contains(entry.first); });
}

void LayerNode::place(QQuickWindow& window, qsizetype position, QSGTexture& texture, const QRectF& rect)
{
    const bool isNew = position == m_nodes.size();
    if (isNew) {
        m_nodes.append(window.createImageNode());
        m_nodes.last()->setFlag(QSGNode::OwnedByParent);
        m_nodes.last()->setFiltering(QSGTexture::Nearest);
    }
    QSGImageNode& node = *m_nodes[position];
    // The software renderer repaints what is touched, so what stays the same is left alone.
    if (node.texture() != &texture) {
        node.setTexture(&texture);
        node.setSourceRect(QRectF(QPointF(), texture.textureSize()));
    }
    if (node.rect() != rect)
        node.setRect(rect);
    // It looks at the texture as soon as the node is in the tree.
    if (isNew)
        appendChildNode(&node);
}

QSGTexture* LayerNode::texture(QQuickWindow& window, const QString& content, const QImage& image)
{
    auto& texture = m_textures[content];
    if (!texture)
        texture.reset(window.createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
    return texture.get();
}

} // namespace

TileLayer::TileLayer(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setClip(true);
}

void TileLayer::restart()
{
    ++m_generation;
    m_images.clear();
    m_isStale = true;
}

void TileLayer::begin()
{
    m_tiles.clear();
}

void TileLayer::add(const Tile& tile, const Paint& paint)
{
    QImage& image = m_images[tile.content];
    if (image.isNull()) {
        image = paint();
        ++m_paintedCount;
    }
    m_tiles.append(tile);
}

void TileLayer::end()
{
    if (m_tiles == m_shown && !m_isStale)
        return;
    m_isStale = false;
    m_shown = m_tiles;
    forgetUnused();
    update();
}

void TileLayer::forgetUnused()
{
    QSet<QString> used;
    for (const Tile& tile : std::as_const(m_shown))
        used.insert(tile.content);
    // As many again as are in use, for what comes back while scrolling to and fro.
    if (m_images.size() > 2 * used.size() + 32)
        m_images.removeIf(
            [&](QHash<QString, QImage>::iterator image) { return !used.contains(image.key()); });
}

QSGNode* TileLayer::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<LayerNode*>(oldNode);
    if (!node)
        node = std::make_unique<LayerNode>().release();
    node->restart(m_generation);
    node->show(*window(), m_shown, m_images);
    return node;
}

} // namespace corvane
