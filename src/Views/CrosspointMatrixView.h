#pragma once

#include "Views/CellFades.h"
#include "Views/CrosspointGridModel.h"
#include "Views/FrameTicker.h"
#include "Views/GridActions.h"
#include "Views/GridLayout.h"
#include "Views/GridPainter.h"
#include "Views/TileLayer.h"

#include <QQuickItem>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// The crosspoint grid: one column for each visible source, one row for each visible destination, headers
/// that stay in view.
///
/// Draws what is in view and never what exists. Scrolls by itself; `contentX` and `contentY` are for scroll
/// bars. Menus and tool tips are asked for and shown around it. Main thread.
class CrosspointMatrixView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::MatrixController* controller READ controller WRITE setController NOTIFY
            controllerChanged FINAL)
    Q_PROPERTY(bool dark READ isDark WRITE setDark NOTIFY darkChanged FINAL)
    /// Side of a cell; a change is animated.
    Q_PROPERTY(double cellSize READ cellSize WRITE setCellSize NOTIFY cellSizeChanged FINAL)
    Q_PROPERTY(double gap READ gap WRITE setGap NOTIFY gapChanged FINAL)
    /// Up to so many cells each is a thing of its own.
    Q_PROPERTY(
        int hoverCellLimit READ hoverCellLimit WRITE setHoverCellLimit NOTIFY hoverCellLimitChanged FINAL)
    /// What floats over the lower edge; the last rows scroll clear of it.
    Q_PROPERTY(double controlBarClearance READ controlBarClearance WRITE setControlBarClearance NOTIFY
            controlBarClearanceChanged FINAL)
    Q_PROPERTY(double contentX READ contentX WRITE setContentX NOTIFY scrolled FINAL)
    Q_PROPERTY(double contentY READ contentY WRITE setContentY NOTIFY scrolled FINAL)
    Q_PROPERTY(double contentWidth READ contentWidth NOTIFY extentChanged FINAL)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY extentChanged FINAL)
    /// The part of the view in which cells are drawn.
    Q_PROPERTY(QRectF fieldArea READ fieldArea NOTIFY extentChanged FINAL)
    /// The help for what the pointer or the keyboard is on, and where that is; both empty elsewhere.
    Q_PROPERTY(QString toolTip READ toolTip NOTIFY toolTipChanged FINAL)
    Q_PROPERTY(QRectF toolTipArea READ toolTipArea NOTIFY toolTipChanged FINAL)

public:
    explicit CrosspointMatrixView(QQuickItem* parent = nullptr);
    ~CrosspointMatrixView() override;

    [[nodiscard]] MatrixController* controller() const { return m_model.controller(); }
    void setController(MatrixController* controller);
    [[nodiscard]] bool isDark() const { return m_model.palette().isDark; }
    void setDark(bool isDark);
    [[nodiscard]] double cellSize() const { return m_cellSize; }
    void setCellSize(double cellSize);
    [[nodiscard]] double gap() const { return m_layout.field.gap; }
    void setGap(double gap);
    [[nodiscard]] int hoverCellLimit() const { return int(m_model.hoverCellLimit()); }
    void setHoverCellLimit(int limit);
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

    /// Does what the menu that was asked for offers at this position.
    Q_INVOKABLE void performMenuEntry(int position);

    [[nodiscard]] const CrosspointGridModel& model() const { return m_model; }
    [[nodiscard]] const GridLayout& layout() const { return m_layout; }
    [[nodiscard]] GridActions& actions() { return m_actions; }
    /// Where the keyboard is; absent in a grid without ports.
    [[nodiscard]] std::optional<GridPlace> focusPlace() const { return m_focus; }
    void setFocusPlace(GridPlace place);
    void scrollTo(QPointF scroll);
    /// Lets all that moves move on by so many seconds.
    void advance(double seconds);
    /// Pictures painted since the view exists.
    [[nodiscard]] qint64 paintedCount() const;

signals:
    void controllerChanged();
    void darkChanged();
    void cellSizeChanged();
    void gapChanged();
    void hoverCellLimitChanged();
    void controlBarClearanceChanged();
    void scrolled();
    void extentChanged();
    void toolTipChanged();
    /// The keyboard is at another place.
    void focusPlaceChanged();
    /// Entries with "text" and "symbol", for a menu at this point of the view.
    void menuRequested(QPointF point, const QVariantList& entries);

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

    void onRowChanged(int row);
    void onPortsChanged();
    void refreshLayout();
    void tellOfExtent();
    void setShownCellSize(double cellSize);
    void setHovered(std::optional<GridPlace> place);
    void point(std::optional<QPointF> position);
    void startFades();
    void startFade(int row, std::optional<qint64> sourceBefore, std::optional<qint64> sourceNow);
    void keepMoving();
    [[nodiscard]] double pixelRatio() const;

    void refreshStyle();
    void placeLayers();
    void showCells();
    void showStrip(int row, GridSpan columns);
    void showRowHeaders();
    void showColumnHeaders();
    void showCorner();
    [[nodiscard]] QPoint inPixels(QPointF point) const;
    [[nodiscard]] QPoint tilePosition(GridPlace place) const;
    [[nodiscard]] CellLook look(const GridRowView& row, GridPlace place) const;
    [[nodiscard]] bool showsFocus(GridPlace place) const { return m_showsFocus && m_focus == place; }

    void press(QMouseEvent& event, bool isDouble);
    void requestMenu(GridPlace place, QPointF point);
    [[nodiscard]] bool actOnKey(const QKeyEvent& event, GridPlace focus);
    void showFocus(bool isShown);
    /// What a tool tip is due for: what the pointer rests on, or else where the keyboard is.
    [[nodiscard]] std::optional<GridPlace> toolTipPlace() const;

    CrosspointGridModel m_model;
    GridActions m_actions;
    GridLayout m_layout;
    Extent m_toldExtent;
    GridPainter m_painter;
    double m_cellSize = 44;

    TileLayer* m_cells;
    TileLayer* m_rowHeaders;
    TileLayer* m_columnHeaders;
    TileLayer* m_corner;

    FrameTicker m_ticker;
    CellFades m_connecting;
    CellFades m_hovering;
    std::optional<Zoom> m_zoom;
    /// The rows of the last frame, by position.
    QHash<int, GridRowView> m_shownRows;

    std::optional<GridPlace> m_focus;
    bool m_showsFocus = false;
    std::optional<QPointF> m_pointer;
    std::optional<GridPlace> m_hovered;
    std::optional<Press> m_press;
    std::optional<GridPlace> m_menuPlace;
    QList<PortAction> m_menu;
};

} // namespace corvane
