#pragma once

#include "Views/GridActions.h"

#include <QAccessibleActionInterface>
#include <QAccessibleObject>

#include <functional>

namespace corvane {

class CrosspointMatrixView;
class GridAccessibleChild;

/// The grid as screen readers see it: column headers, then each row's header and cells. Where the cells are
/// one surface, they are one child too, and the last.
///
/// Children are no objects: they are made when somebody asks for them, live until the grid gets other ports,
/// and say what the model says at that moment. Main thread.
class GridAccessible final : public QAccessibleObject {
public:
    /// Makes the grid known to Qt; repeating it does nothing.
    static void install();

    /// Hands an event to whoever passes it on to screen readers.
    using Tell = std::function<void(QAccessibleEvent& event)>;

    explicit GridAccessible(CrosspointMatrixView& view, Tell tell = passOn);
    ~GridAccessible() override;

    [[nodiscard]] bool isValid() const override { return m_view != nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Grouping; }
    [[nodiscard]] QAccessible::State state() const override;

    void tell(QAccessibleEvent&& event) const { m_tell(event); }
    /// Null once the view is going.
    [[nodiscard]] CrosspointMatrixView* view() const { return m_view; }
    [[nodiscard]] bool hasFocus(GridPlace place) const { return focusedPlace() == place; }
    /// A rectangle of the view on the screen.
    [[nodiscard]] QRect onScreen(const QRectF& rect) const;

private:
    static void passOn(QAccessibleEvent& event) { QAccessible::updateAccessibility(&event); }
    void observe();
    void forgetChildren();
    void tellOfRow(int row) const;
    void tellOfColumn(int column) const;
    void tellOfAll() const;
    void tellOfFocus() const;
    [[nodiscard]] GridAccessibleChild* known(GridPlace place) const;
    [[nodiscard]] QAccessibleInterface* childAt(GridPlace place) const;
    /// The child that has the keyboard, or that it is on.
    [[nodiscard]] std::optional<GridPlace> focusedPlace() const;
    [[nodiscard]] GridPlace childOf(GridPlace place) const;
    [[nodiscard]] GridPlace placeOf(int index) const;
    [[nodiscard]] int indexOf(GridPlace place) const;

    CrosspointMatrixView* m_view;
    const Tell m_tell;
    mutable QHash<GridPlace, QAccessible::Id> m_children;
    QObject m_context;
};

/// One header or cell, or all cells as one.
class GridAccessibleChild final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    /// Stands for all cells; the corner at this place has nothing to say.
    static constexpr GridPlace field{.row = GridPlace::header, .column = GridPlace::header};

    GridAccessibleChild(const GridAccessible& grid, GridPlace place);

    [[nodiscard]] GridPlace place() const { return m_place; }
    /// Tells screen readers what is different since the last time.
    void tellOfChanges();

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return m_grid.window(); }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override { }
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

private:
    [[nodiscard]] bool isField() const { return m_place == field; }
    [[nodiscard]] QString name() const;
    [[nodiscard]] QString description() const;
    [[nodiscard]] QList<PortAction> actions() const;
    void remember();

    const GridAccessible& m_grid;
    const GridPlace m_place;
    QString m_toldName;
    QString m_toldDescription;
    QAccessible::State m_toldState;
};

} // namespace corvane
