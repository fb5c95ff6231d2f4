#pragma once

#include "Views/PaneLayout.h"
#include "Views/PaneModel.h"

#include <QQuickItem>

namespace corvane {

/// The area in which a pane's rows are: it has their keyboard, and screen readers find them here. What they
/// look like is drawn within, by a list that scrolls.
///
/// The keyboard is on one row, and what it does there is what a click would do. Menus are asked for and shown
/// around it. Main thread.
class PaneRows : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::PaneModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    Q_PROPERTY(double rowHeight READ rowHeight WRITE setRowHeight NOTIFY layoutChanged FINAL)
    /// What floats over the lower edge; the last row scrolls clear of it.
    Q_PROPERTY(double clearance READ clearance WRITE setClearance NOTIFY layoutChanged FINAL)
    /// How far the list within has scrolled down.
    Q_PROPERTY(double scroll READ scroll WRITE setScroll NOTIFY scrollChanged FINAL)
    Q_PROPERTY(double padding READ padding CONSTANT FINAL)
    Q_PROPERTY(double spacing READ spacing CONSTANT FINAL)
    /// Of the rows with all the room around them.
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY layoutChanged FINAL)
    /// The row that the keyboard is on, and whether that is to be seen.
    Q_PROPERTY(int focusRow READ focusRow NOTIFY focusRowChanged FINAL)
    Q_PROPERTY(bool showsFocus READ showsFocus NOTIFY focusRowChanged FINAL)

public:
    explicit PaneRows(QQuickItem* parent = nullptr);
    ~PaneRows() override;

    [[nodiscard]] PaneModel* model() const { return m_model; }
    /// May be null, and may go at any time.
    void setModel(PaneModel* model);
    [[nodiscard]] double rowHeight() const { return m_layout.rowHeight; }
    void setRowHeight(double height);
    [[nodiscard]] double clearance() const { return m_layout.clearance; }
    void setClearance(double clearance);
    [[nodiscard]] double scroll() const { return m_layout.scroll; }
    void setScroll(double scroll);
    [[nodiscard]] static double padding() { return PaneLayout::padding; }
    [[nodiscard]] static double spacing() { return PaneLayout::spacing; }
    [[nodiscard]] double contentHeight() const { return m_layout.contentHeight(); }
    [[nodiscard]] int focusRow() const { return m_focusRow; }
    [[nodiscard]] bool showsFocus() const { return m_showsFocus; }

    [[nodiscard]] const PaneLayout& layout() const { return m_layout; }
    void setFocusRow(int row);

    Q_INVOKABLE void turnWheel(QPointF pixelDelta, QPointF angleDelta);
    // What the pointer does; it takes the keyboard along.
    Q_INVOKABLE void click(int row);
    Q_INVOKABLE void doubleClick(int row);
    Q_INVOKABLE void clickBadge(int row);
    Q_INVOKABLE void requestMenu(int row, QPointF point);
    /// Does what the menu that was asked for offers at this position, to the port it was asked for.
    Q_INVOKABLE void performMenuEntry(int position);
    /// Takes the keyboard, as if the operator had come here with it.
    Q_INVOKABLE void takeKeyboard();

signals:
    void modelChanged();
    void layoutChanged();
    void scrollChanged();
    void focusRowChanged();
    /// The row at this position says something else.
    void rowChanged(int row);
    /// There are other rows than before.
    void rowsChanged();
    /// The list within is to be scrolled to here.
    void scrollWanted(double scroll);
    /// Entries with "text" and "symbol", for a menu at this point of the area.
    void menuRequested(QPointF point, const QVariantList& entries);
    void goingAway();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    [[nodiscard]] bool actOnKey(const QKeyEvent& event);
    void point(int row);
    void showFocus(bool isShown);
    void observe(const PaneModel& model);
    void onRowsChanged();
    void setLayout(const PaneLayout& layout);

    QPointer<PaneModel> m_model;
    PaneLayout m_layout;
    int m_focusRow = 0;
    bool m_showsFocus = false;
    /// The rows are new, and nobody has looked at them yet.
    bool m_isFresh = true;
    std::optional<qint64> m_menuPort;
    QList<PortAction> m_menu;
};

} // namespace corvane
