#pragma once

#include "Views/Shared/AccessibleSurface.h"
#include "Views/Shared/RowListModel.h"

namespace corvane {

class RowArea;

/// The rows of a list as screen readers see them: all of them, whether or not they are in view.
class RowAreaAccessible final : public AccessibleSurface {
public:
    /// Makes the rows known to Qt; repeating it does nothing.
    static void install();

    explicit RowAreaAccessible(RowArea& rows, Tell tell = passOn);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::List; }

    /// Null once the rows are going.
    [[nodiscard]] RowArea* rows() const;

protected:
    [[nodiscard]] int partCount() const override;
    [[nodiscard]] std::unique_ptr<AccessiblePart> makePart(int part) const override;
    [[nodiscard]] std::optional<int> partAt(QPointF point) const override;
    [[nodiscard]] std::optional<int> keyboardPart() const override;
};

/// One row.
class RowPart final : public AccessiblePart {
public:
    RowPart(const RowAreaAccessible& rows, int index);

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] int childCount() const override { return static_cast<int>(buttons().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override { return buttons().value(index); }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

protected:
    [[nodiscard]] QString name() const override { return speech().name; }
    [[nodiscard]] QString description() const override { return speech().description; }
    [[nodiscard]] QString help() const override { return speech().help; }
    void tellState(QAccessible::State& state) const override;
    [[nodiscard]] bool canBePressed() const override;
    void press() override;
    [[nodiscard]] QList<MenuAction> namedActions() const override;
    void takeFocus() override;

private:
    [[nodiscard]] RowListModel& model() const;
    [[nodiscard]] RowSpeech speech() const;
    [[nodiscard]] QList<QAccessibleInterface*> buttons() const;

    const RowAreaAccessible& m_rows;
};

} // namespace corvane
