#pragma once

#include "Views/Shared/RowListModel.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QQuickItem>

#include <optional>

namespace corvane {

/// The area in which the rows of a `RowList` are: it has their keyboard, and screen readers find all of them
/// here, in view or not. A `ListView` within it, `view`, draws and scrolls them.
///
/// The keyboard is on one row and stays on it when rows come, go or move; what it does there is what a click
/// would do. A menu stays that of the row it was opened for. Only the keyboard makes the rows scroll: what is
/// pressed is what is acted on. Main thread.
class RowArea : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    /// May be null, and may go at any time.
    Q_PROPERTY(corvane::RowListModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// Its margins are what a row that is shown keeps free of.
    Q_PROPERTY(QQuickItem* view MEMBER m_view NOTIFY viewChanged FINAL)
    /// What screen readers call the list.
    Q_PROPERTY(QString label MEMBER m_label NOTIFY labelChanged FINAL)
    /// Return, too, presses a row.
    Q_PROPERTY(bool returnPresses MEMBER m_returnPresses NOTIFY returnPressesChanged FINAL)
    /// The row that the keyboard is on, -1 if there is none, and whether that is to be seen.
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged FINAL)
    Q_PROPERTY(bool showsFocus READ showsFocus NOTIFY showsFocusChanged FINAL)
    /// The row whose menu is open, or -1, and what the menu offers as things are.
    Q_PROPERTY(int menuRow READ menuRow NOTIFY menuChanged FINAL)
    Q_PROPERTY(QVariantList menu READ menuVariants NOTIFY menuChanged FINAL)
    /// The row that is being dragged, or -1, and the row before which it would be put.
    Q_PROPERTY(int draggedRow READ draggedRow NOTIFY dragChanged FINAL)
    Q_PROPERTY(int dropRow READ dropRow NOTIFY dragChanged FINAL)
    /// Where that is, in points of the area.
    Q_PROPERTY(double dropLine READ dropLine NOTIFY dragChanged FINAL)
    /// Screen readers find the buttons that a row has in view within it, beside its actions.
    Q_PROPERTY(bool speaksOfButtons MEMBER m_speaksOfButtons NOTIFY speaksOfButtonsChanged FINAL)

public:
    explicit RowArea(QQuickItem* parent = nullptr);
    ~RowArea() override;

    [[nodiscard]] RowListModel* model() const { return m_model; }
    void setModel(RowListModel* model);
    [[nodiscard]] const QString& label() const { return m_label; }
    [[nodiscard]] int rowCount() const { return m_model ? m_model->rowCount() : 0; }
    [[nodiscard]] int currentRow() const { return m_current.row(); }
    /// Scrolls nothing.
    void setCurrentRow(int row);
    [[nodiscard]] bool showsFocus() const { return m_isKeyboardLed && hasActiveFocus(); }
    [[nodiscard]] int menuRow() const { return m_menuRow; }
    [[nodiscard]] const QList<MenuAction>& menu() const { return m_menu; }
    [[nodiscard]] QVariantList menuVariants() const { return toVariants(m_menu); }
    [[nodiscard]] int draggedRow() const { return m_dragged.row(); }
    [[nodiscard]] int dropRow() const { return m_dropRow; }
    [[nodiscard]] double dropLine() const;

    /// In points of the area. Of a row that is out of view, about where it would be.
    [[nodiscard]] QRectF rectOf(int row) const;
    [[nodiscard]] bool isInView(int row) const;
    /// What screen readers find within a row, from left to right; empty unless it is in view.
    [[nodiscard]] QList<QAccessibleInterface*> buttonsOf(int row) const;
    [[nodiscard]] std::optional<int> rowAt(QPointF point) const;
    /// Scrolls no farther than it must to bring a row wholly into view, clear of the margins.
    void showRow(int row);

    /// A screen reader's press; it takes the keyboard along.
    void press(int row);
    // What the pointer does at a row; it takes the keyboard along.
    Q_INVOKABLE void click(int row);
    Q_INVOKABLE void doubleClick(int row);
    /// What a button of the row does: one of its actions, by its text.
    Q_INVOKABLE void act(int row, const QString& text);
    /// Moves the rows at once.
    Q_INVOKABLE void turnWheel(QPointF pixelDelta, QPointF angleDelta);
    Q_INVOKABLE void openMenu(int row, QPointF point);
    Q_INVOKABLE void closeMenu();
    /// Does what the open menu offers by this text, to the row that it was opened for.
    Q_INVOKABLE void chooseInMenu(const QString& text);
    Q_INVOKABLE void beginDrag(int row);
    Q_INVOKABLE void dragTo(QPointF point);
    Q_INVOKABLE void endDrag(bool isDropped);
    [[nodiscard]] Q_INVOKABLE bool canMove(int row) const;
    /// Takes the keyboard, as if the operator had come here with it.
    Q_INVOKABLE void takeKeyboard();

signals:
    void modelChanged();
    void viewChanged();
    void labelChanged();
    void returnPressesChanged();
    void speaksOfButtonsChanged();
    void currentRowChanged();
    void showsFocusChanged();
    void menuChanged();
    /// A menu has been opened and is to be shown at this point of the area.
    void menuOpened(QPointF point);
    void dragChanged();
    /// The row at this position says something else.
    void rowChanged(int row);
    /// There are other rows than before, or in another order.
    void rowsChanged();
    void goingAway();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void updatePolish() override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    void observe(const RowListModel& model);
    void onRowsChanged();
    void onRowWanted(int row);
    [[nodiscard]] bool moveByKey(const QKeyEvent& event);
    [[nodiscard]] std::optional<int> rowByKey(int key) const;
    [[nodiscard]] int reachable(int wanted, int direction) const;
    [[nodiscard]] bool actOnKey(const QKeyEvent& event);
    [[nodiscard]] bool pressesRow(int key) const;
    void point(int row);
    void setKeyboardLed(bool isLed);
    void followMenu();

    // The view as it stands.
    [[nodiscard]] double viewValue(const char* property) const;
    [[nodiscard]] QQuickItem* itemOf(int row) const;
    [[nodiscard]] double clearHeight() const;
    [[nodiscard]] double rowStride() const;
    void scrollTo(double contentY);
    void position(int row, int mode);
    /// Puts a row that is not wholly in view into the middle.
    void centreRow(int row);
    void holdCurrentItem();

    QPointer<RowListModel> m_model;
    QQuickItem* m_view = nullptr;
    QString m_label;
    bool m_returnPresses = true;
    bool m_speaksOfButtons = false;
    QPersistentModelIndex m_current;
    /// Where the keyboard was last, for when its row goes.
    int m_lastRow = 0;
    bool m_isKeyboardLed = false;
    /// The rows are new, and nobody has looked at them yet.
    bool m_isFresh = true;
    QPersistentModelIndex m_menuIndex;
    int m_menuRow = -1;
    QList<MenuAction> m_menu;
    QPersistentModelIndex m_dragged;
    int m_dropRow = -1;
};

} // namespace corvane
