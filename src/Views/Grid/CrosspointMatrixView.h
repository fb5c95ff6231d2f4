#pragma once

#include "Theme/MatrixZoom.h"
#include "Views/Grid/CellFades.h"
#include "Views/Grid/CrosspointGridModel.h"
#include "Views/Grid/FrameTicker.h"
#include "Views/Grid/GridLayout.h"
#include "Views/Grid/GridPainter.h"
#include "Views/Grid/TileLayer.h"

#include <QQuickItem>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The crosspoint grid: one column for each visible source, one row for each visible destination, headers
/// that stay in view.
///
/// Draws what is in view and never what exists. Scrolls by itself, and only the wheel, a finger and the
/// keyboard make it: a press acts on what it hits. `contentX` and `contentY` are for scroll bars. Menus and
/// tool tips are requested here and shown by QML. Main thread.
class CrosspointMatrixView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::CrosspointGridModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// Side of a cell; a change is animated.
    Q_PROPERTY(double cellSize READ cellSize WRITE setCellSize NOTIFY cellSizeChanged FINAL)
    /// Height of the bar that floats over the lower edge; the last rows scroll clear of it.
    Q_PROPERTY(double controlBarClearance READ controlBarClearance WRITE setControlBarClearance NOTIFY
            controlBarClearanceChanged FINAL)
    Q_PROPERTY(double contentX READ contentX WRITE setContentX NOTIFY scrolled FINAL)
    Q_PROPERTY(double contentY READ contentY WRITE setContentY NOTIFY scrolled FINAL)
    Q_PROPERTY(double contentWidth READ contentWidth NOTIFY extentChanged FINAL)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY extentChanged FINAL)
    /// The part of the view in which cells are drawn.
    Q_PROPERTY(QRectF fieldArea READ fieldArea NOTIFY extentChanged FINAL)
    /// The help for what the pointer or the keyboard is on, and where that is; both may be empty.
    Q_PROPERTY(QString toolTip READ toolTip NOTIFY toolTipChanged FINAL)
    Q_PROPERTY(QRectF toolTipArea READ toolTipArea NOTIFY toolTipChanged FINAL)

public:
    explicit CrosspointMatrixView(QQuickItem* parent = nullptr);
    ~CrosspointMatrixView() override;

    [[nodiscard]] CrosspointGridModel* model() const { return m_model; }
    /// May be null, and may go at any time: the grid is then empty.
    void setModel(CrosspointGridModel* model);
    [[nodiscard]] double cellSize() const { return m_cellSize; }
    void setCellSize(double cellSize);
    [[nodiscard]] double controlBarClearance() const { return m_layout.controlBarClearance; }
    void setControlBarClearance(double clearance);

    [[nodiscard]] double contentX() const { return m_layout.scroll.x(); }
    void setContentX(double x) { scrollTo({x, contentY()}); }
    [[nodiscard]] double contentY() const { return m_layout.scroll.y(); }
    void setContentY(double y) { scrollTo({contentX(), y}); }
    [[nodiscard]] double contentWidth() const { return m_layout.contentSize().width(); }
    [[nodiscard]] double contentHeight() const { return m_layout.contentSize().height(); }
    [[nodiscard]] QRectF fieldArea() const { return m_layout.areaOf({0, 0}); }
    [[nodiscard]] QString toolTip() const;
    [[nodiscard]] QRectF toolTipArea() const;

    /// Does what the menu that was asked for offers by this text.
    Q_INVOKABLE void chooseInMenu(const QString& text);

    [[nodiscard]] const GridLayout& layout() const { return m_layout; }
    /// See `CrosspointGridModel::hoverEnabled`.
    [[nodiscard]] bool hoverEnabled() const { return !m_model || m_model->hoverEnabled(); }
    /// Where the keyboard is; absent in a grid without ports.
    [[nodiscard]] std::optional<GridPlace> focusPlace() const { return m_focus; }
    /// Nothing is scrolled.
    void setFocusPlace(GridPlace place);
    /// Scrolls until the place that has the keyboard is wholly in view.
    void showFocusPlace();
    void scrollTo(QPointF scroll);
    /// Moves all transitions on by so many seconds.
    void advance(double seconds);
    /// Pictures painted since the view exists.
    [[nodiscard]] qint64 paintedCount() const;

signals:
    void modelChanged();
    void cellSizeChanged();
    void controlBarClearanceChanged();
    void scrolled();
    void extentChanged();
    void toolTipChanged();
    /// This row may look different.
    void rowChanged(int row);
    void columnChanged(int column);
    /// Anything may look different, at the same places.
    void looksChanged();
    /// There are other places than before.
    void placesChanged();
    /// The keyboard is at another place.
    void focusPlaceChanged();
    void goingAway();
    /// What is offered, each a `MenuAction`, for a menu at this point of the view.
    void menuRequested(QPointF point, const QVariantList& actions);

protected:
    void componentComplete() override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void updatePolish() override;

    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Press {
        QPointF point;
        std::optional<GridPlace> place;
        QPointF scroll;
        bool isDrag = false;
    };
    struct Extent {
        QSizeF content;
        QRectF fieldArea;
        bool operator==(const Extent&) const = default;
    };
    struct Zoom {
        double from = 0;
        double elapsed = 0;
    };
    /// A row in view and the tiles that it was last shown by.
    struct ShownRow {
        bool isStale = true;
        std::optional<GridRowView> row;
        RowHeaderTile header;
        /// The columns that the strips cover.
        GridSpan columns;
        QList<CellStrip> strips;
    };

    [[nodiscard]] TileLayer* makeLayer();
    void observe(const CrosspointGridModel& model);
    void onRowChanged(int row);
    void onColumnChanged(int column);
    void onLooksChanged();
    void onPortsChanged();
    void refreshLayout();
    void notifyExtent();
    void setShownCellSize(double cellSize);
    void setHovered(std::optional<GridPlace> place);
    void movePointer(std::optional<QPointF> position);
    void startHoverFade(std::optional<GridPlace> place, double from, double to);
    void startFade(int row, std::optional<qint64> sourceBefore, std::optional<qint64> sourceNow);
    void runTicker();
    [[nodiscard]] double pixelRatio() const;

    /// What is stale is rebuilt for the next frame.
    void markStale(GridPlace place);
    void markRowStale(int row);
    void refreshStyle();
    void placeLayers();
    void refreshRows();
    void refreshRow(ShownRow& shown, int position, GridSpan columns);
    void refreshColumns();
    void addRowTiles();
    void addColumnTiles();
    void addCornerTile();
    [[nodiscard]] CellStrip strip(int row, int first, int end) const;
    [[nodiscard]] CellLook look(GridPlace place) const;
    [[nodiscard]] QPoint inPixels(QPointF point) const;
    [[nodiscard]] QPoint tilePosition(GridPlace place) const;
    [[nodiscard]] bool showsFocus(GridPlace place) const { return m_showsFocus && m_focus == place; }

    void press(QMouseEvent& event, bool isSecond);
    void requestMenu(GridPlace place, QPointF point);
    [[nodiscard]] bool actOnKey(const QKeyEvent& event, GridPlace focus);
    void showFocus(bool isShown);
    /// What the tool tip is for: the place under the pointer, or else the one with the keyboard.
    [[nodiscard]] std::optional<GridPlace> toolTipPlace() const;

    QPointer<CrosspointGridModel> m_model;
    GridLayout m_layout;
    Extent m_notifiedExtent;
    GridPainter m_painter;
    double m_cellSize = MatrixZoom::defaultCell;

    TileLayer* m_cells;
    TileLayer* m_rowHeaders;
    TileLayer* m_columnHeaders;
    TileLayer* m_corner;

    FrameTicker m_ticker;
    CellFades m_connectionFades;
    CellFades m_hoverFades;
    std::optional<Zoom> m_zoom;
    // What is in view, by position.
    QHash<int, ShownRow> m_rows;
    QHash<int, ColumnHeaderTile> m_columns;

    std::optional<GridPlace> m_focus;
    bool m_showsFocus = false;
    std::optional<QPointF> m_pointer;
    std::optional<GridPlace> m_hovered;
    std::optional<Press> m_press;
    /// Where the last press was: only a second one at the same place makes a double click.
    std::optional<GridPlace> m_lastPressed;
    std::optional<GridPlace> m_menuPlace;
};

} // namespace corvane
