#pragma once

#include "Views/Grid/GridPlace.h"
#include "Views/Shared/AccessibleSurface.h"

namespace corvane {

class CrosspointMatrixView;

/// The grid for screen readers: column headers, then each row's header and cells. Where the cells are one
/// surface, they are one child, and the last.
class GridAccessible final : public AccessibleSurface {
public:
    /// Registers the grid with Qt; repeating it does nothing.
    static void install();

    explicit GridAccessible(CrosspointMatrixView& view, Tell tell = passOn);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Grouping; }

    /// Null once the view is being destroyed.
    [[nodiscard]] CrosspointMatrixView* view() const;

protected:
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] std::unique_ptr<AccessiblePart> makePart(int part) const override;
    [[nodiscard]] std::optional<int> partAt(QPointF point) const override;
    [[nodiscard]] std::optional<int> keyboardPart() const override;

private:
    void observe();
    void tellOfRow(int row) const;
    [[nodiscard]] GridPlace placeOf(int part) const;
    [[nodiscard]] int indexOf(GridPlace place) const;
};

/// One header or cell, or all cells as one.
class GridAccessibleChild final : public AccessiblePart {
public:
    /// Stands for all cells; the corner at this place is no child.
    static constexpr GridPlace field{.row = GridPlace::header, .column = GridPlace::header};

    GridAccessibleChild(const GridAccessible& grid, int index, GridPlace place);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;

protected:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString description() const override;
    [[nodiscard]] QString help() const override;
    void tellState(QAccessible::State& state) const override;
    [[nodiscard]] bool canBePressed() const override { return !isField(); }
    void press() override;
    [[nodiscard]] QList<MenuAction> namedActions() const override;
    void takeFocus() override;

private:
    [[nodiscard]] bool isStaged() const;
    [[nodiscard]] bool isField() const { return m_place == field; }

    const GridAccessible& m_grid;
    const GridPlace m_place;
};

} // namespace corvane
