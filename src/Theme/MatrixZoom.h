#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The size of the grid's cells, in logical pixels, and the steps in which the operator changes it.
///
/// A size between two steps, as an older version may have kept it, stays until the operator steps away from
/// it.
class MatrixZoom : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one for the whole program")

    Q_PROPERTY(double cellSize READ cellSize WRITE setCellSize NOTIFY cellSizeChanged FINAL)
    Q_PROPERTY(bool canShrink READ canShrink NOTIFY cellSizeChanged FINAL)
    Q_PROPERTY(bool canGrow READ canGrow NOTIFY cellSizeChanged FINAL)

public:
    static constexpr double minCell = 30;
    static constexpr double maxCell = 68;
    static constexpr double defaultCell = 44;

    using QObject::QObject;

    [[nodiscard]] double cellSize() const { return m_cellSize; }
    /// What is no size at all becomes the default; what is out of range, the nearest end of it.
    void setCellSize(double size);

    [[nodiscard]] bool canShrink() const { return m_cellSize > minCell; }
    [[nodiscard]] bool canGrow() const { return m_cellSize < maxCell; }
    Q_INVOKABLE void shrink();
    Q_INVOKABLE void grow();

signals:
    void cellSizeChanged();

private:
    double m_cellSize = defaultCell;
};

} // namespace corvane
