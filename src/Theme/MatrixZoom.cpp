#include "Theme/MatrixZoom.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double step = 6;

} // namespace

void MatrixZoom::setCellSize(double size)
{
    const auto usable = std::isfinite(size) ? std::clamp(size, minCell, maxCell) : defaultCell;
    if (usable == m_cellSize)
        return;
    m_cellSize = usable;
    emit cellSizeChanged();
}

void MatrixZoom::shrink()
{
    setCellSize(m_cellSize - step);
}

void MatrixZoom::grow()
{
    setCellSize(m_cellSize + step);
}

} // namespace corvane
