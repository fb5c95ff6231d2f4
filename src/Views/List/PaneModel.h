#pragma once

#include "Theme/GlassKit.h"
#include "Views/List/PaneClicks.h"
#include "Views/List/PaneContent.h"
#include "Views/List/SelectableRow.h"
#include "Views/Shared/RowListModel.h"

namespace corvane {

/// One pane of the list: a row for each visible port of one kind, and the header above them.
///
/// Tells of those rows alone that are really different: a tally changes one row. The controller may be
/// replaced, and may go at any time. Main thread.
class PaneModel : public KeyedRowListModel<SelectableRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a DestinationListModel")
    Q_PROPERTY(corvane::PaneContent content READ content NOTIFY contentChanged FINAL)

public:
    /// The row as a whole, a `SelectableRow`. The display role is its title.
    static constexpr int rowRole = Qt::UserRole;

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    void setController(MatrixController* controller);
    [[nodiscard]] const PaneContent& content() const { return m_content; }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    [[nodiscard]] RowSpeech speech(int row) const override;
    /// The first current row, or else the first.
    [[nodiscard]] int startRow() const override;
    [[nodiscard]] QList<MenuAction> menu(int row) override;
    [[nodiscard]] QList<MenuAction> actions(int row) override;
    void press(int row) override;
    /// Where this routes at once it is held for a moment; see `PaneClicks`.
    void click(int row) override;
    /// Renames. What the first click did is put back: the double click is one gesture.
    void doubleClick(int row) override;
    /// Puts the row into the gang or takes it out.
    Q_INVOKABLE void clickBadge(int row);
    /// `position` counts the header's actions from 0.
    Q_INVOKABLE void performHeaderAction(int position);

signals:
    void contentChanged();

protected:
    PaneModel(PortKind kind, PaneClicks& clicks, const GlassKit& theme);

    /// A source and where it goes.
    struct Sending {
        qint64 source = 0;
        QList<qint64> destinations;
    };

    [[nodiscard]] virtual const QList<Port>& shownPorts(const MatrixController& controller) const = 0;
    [[nodiscard]] virtual SelectableRow makeRow(
        const MatrixController& controller, const Port& port) const = 0;
    /// What is said of all rows together; title, count, numbers and tint are filled in by the base.
    virtual void fillHeader(MatrixController& controller, PaneContent& content) const = 0;
    virtual void observe(const MatrixController& controller) = 0;
    virtual void clickPort(MatrixController& controller, qint64 port) = 0;
    /// What a click on the port would put on air at once; nothing if it only selects or stages.
    [[nodiscard]] virtual std::optional<Sending> sending(
        const MatrixController& controller, qint64 port) const = 0;

    [[nodiscard]] qsizetype currentCount() const;
    /// Recomputes all rows and the header, and emits only the changes.
    void refresh();
    void refreshPort(qint64 port);

private:
    [[nodiscard]] SelectableRow rowFor(const Port& port) const;
    void refreshHeader();

    const PortKind m_kind;
    PaneClicks& m_clicks;
    const GlassKit& m_theme;
    QPointer<MatrixController> m_controller;
    PaneContent m_content;
};

[[nodiscard]] bool isSourceLed(const MatrixController& controller);

} // namespace corvane
