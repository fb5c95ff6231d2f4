#include "Views/Grid/TileLayer.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGTransformNode>
#include <QSet>

#include <memory>
#include <unordered_map>

namespace corvane {

namespace {

/// The layer in the scene: one image node for each tile, and the textures that they share. Lives where the
/// scene is rendered.
///
/// It transforms nothing, but the software renderer knows the place and the clip of nodes that are added
/// later only if their parent is one of the kinds that it keeps a state for.
class LayerNode final : public QSGTransformNode {
public:
    void show(QQuickWindow& window, const QList<TileLayer::Placed>& tiles,
        const QHash<TileLayer::Picture, QImage>& images);

private:
    void place(QQuickWindow& window, qsizetype position, QSGTexture& texture, const QRectF& rect);
    QSGTexture& texture(QQuickWindow& window, TileLayer::Picture picture, const QImage& image);

    // Shared by the nodes, so none of them owns its own.
    std::unordered_map<TileLayer::Picture, std::unique_ptr<QSGTexture>> m_textures;
    QList<QSGImageNode*> m_nodes;
};

void LayerNode::show(QQuickWindow& window, const QList<TileLayer::Placed>& tiles,
    const QHash<TileLayer::Picture, QImage>& images)
{
    while (m_nodes.size() > tiles.size())
        delete m_nodes.takeLast();
    for (qsizetype i = 0; i < tiles.size(); ++i) {
        const auto& [picture, position] = tiles[i];
        const QImage& image = *images.constFind(picture);
        const QRectF rect(QPointF(position) / image.devicePixelRatio(), image.deviceIndependentSize());
        place(window, i, texture(window, picture, image), rect);
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

QSGTexture& LayerNode::texture(QQuickWindow& window, TileLayer::Picture picture, const QImage& image)
{
    auto& texture = m_textures[picture];
    if (!texture)
        texture.reset(window.createTextureFromImage(image, QQuickWindow::TextureHasAlphaChannel));
    return *texture;
}

} // namespace

TileLayer::TileLayer(QQuickItem* parent, Paint paint) : QQuickItem(parent), m_paint(std::move(paint))
{
    setFlag(ItemHasContents);
    setClip(true);
}

void TileLayer::restart()
{
    m_pictures.clear();
    m_images.clear();
}

void TileLayer::begin()
{
    m_next.clear();
}

void TileLayer::add(const GridTile& tile, QPoint position)
{
    m_next.append({pictureOf(tile), position});
}

TileLayer::Picture TileLayer::pictureOf(const GridTile& tile)
{
    Picture& picture = m_pictures[tile];
    if (picture == 0) {
        picture = ++m_lastPicture;
        m_images.insert(picture, m_paint(tile));
    }
    return picture;
}

void TileLayer::end()
{
    if (m_next == m_shown)
        return;
    m_shown = m_next;
    dropUnused();
    update();
}

void TileLayer::dropUnused()
{
    QSet<Picture> used;
    for (const Placed& tile : std::as_const(m_shown))
        used.insert(tile.picture);
    // As many again as are in use, for what comes back while scrolling to and fro.
    if (m_images.size() <= 2 * used.size() + 32)
        return;
    const auto isUnused = [&used](Picture picture) { return !used.contains(picture); };
    m_images.removeIf([&](QHash<Picture, QImage>::iterator image) { return isUnused(image.key()); });
    m_pictures.removeIf([&](QHash<GridTile, Picture>::iterator tile) { return isUnused(tile.value()); });
}

QSGNode* TileLayer::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*)
{
    auto* node = static_cast<LayerNode*>(oldNode);
    if (!node)
        node = std::make_unique<LayerNode>().release();
    node->show(*window(), m_shown, m_images);
    return node;
}

} // namespace corvane
