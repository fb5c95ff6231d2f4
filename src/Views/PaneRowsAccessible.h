#pragma once

#include "Views/AccessibleSurface.h"

namespace corvane {

class PaneRows;
struct SelectableRow;

/// The rows of a pane as screen readers see them: all of them, whether or not they are in view.
class PaneRowsAccessible final : public AccessibleSurface {
public:
    /// Makes the rows known to Qt; repeating it does nothing.
    static void install();

    explicit PaneRowsAccessible(PaneRows& rows, Tell tell = passOn);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::List; }

    /// Null once the rows are going.
    [[nodiscard]] PaneRows* rows() const;

protected:
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] std::unique_ptr<AccessiblePart> makePart(int part) const override;
    [[nodiscard]] std::optional<int> partAt(QPointF point) const override;
    [[nodiscard]] std::optional<int> keyboardPart() const override;

private:
    void observe();
};

/// One row.
class PaneRowsAccessibleChild final : public AccessiblePart {
public:
    PaneRowsAccessibleChild(const PaneRowsAccessible& rows, int index);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Button; }

protected:
    [[nodiscard]] QString name() const override;
    [[nodiscard]] QString description() const override;
    void tellState(QAccessible::State& state) const override;
    [[nodiscard]] QList<PortAction> namedActions() const override;
    void perform(PortAction::Kind kind) override;
    void takeFocus() override;

private:
    [[nodiscard]] const SelectableRow& row() const;

    const PaneRowsAccessible& m_rows;
};

} // namespace corvane
