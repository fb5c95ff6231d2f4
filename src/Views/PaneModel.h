#pragma once

#include "Theme/GlassPalette.h"
#include "Views/PaneContent.h"
#include "Views/PaneHeaderLayout.h"
#include "Views/PortActions.h"
#include "Views/SelectableRow.h"

#include <QAbstractListModel>
#include <QPointer>

namespace corvane {

/// One pane of the list: a row for each visible port of one kind, and the header above them.
///
/// Keeps the rows as it last told of them, and tells of those alone that are really different: a tally
/// changes one row, and no change resets the model. Positions are those in the visible list; a position that
/// isn't there is ignored. The controller may be replaced, and may go at any time. Main thread.
class PaneModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a DestinationListModel")
    Q_PROPERTY(corvane::PaneContent content READ content NOTIFY contentChanged FINAL)

public:
    /// The row as a whole, a `SelectableRow`. The display role is its title.
    static constexpr int rowRole = Qt::UserRole;

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    void setController(MatrixController* controller);
    void setPalette(const GlassPalette& palette);
    [[nodiscard]] const PaneContent& content() const { return m_content; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] const QList<SelectableRow>& rows() const { return m_rows; }
    /// The other way round, by the port's own index.
    [[nodiscard]] std::optional<int> positionOf(qint64 port) const;
    [[nodiscard]] std::optional<qint64> portAt(int position) const;
    /// Where the operator's eye is to begin: the first current row, or else the first.
    [[nodiscard]] int startPosition() const;

    void click(int position);
    /// Renames. What the click before it put in or took out is put back: the double click is one gesture.
    void doubleClick(int position);
    void clickBadge(int position);
    /// Does nothing if it is nothing that the row offers.
    void perform(PortAction::Kind kind, int position);
    Q_INVOKABLE void performHeaderAction(int position);
    [[nodiscard]] QList<PortAction> menu(int position) const;
    /// The named actions for screen readers, besides the press.
    [[nodiscard]] QList<PortAction> accessibleActions(int position) const;

    /// How much of the header is shown in `width`, given the widths that its parts want.
    Q_INVOKABLE [[nodiscard]] corvane::PaneHeaderFit headerFit(const corvane::PaneContent& content,
        double width, double title, double subtitle, double count, double labelledActions,
        double iconActions) const;

signals:
    void contentChanged();

protected:
    PaneModel(PortKind kind, QObject* parent);

    [[nodiscard]] virtual const QList<Port>& shownPorts(const MatrixController& controller) const = 0;
    [[nodiscard]] virtual SelectableRow makeRow(
        const MatrixController& controller, const Port& port) const = 0;
    /// What is said of all rows together; title, count, numbers and tint are filled in by the base.
    virtual void tellHeader(const MatrixController& controller, PaneContent& content) const = 0;
    virtual void observe(const MatrixController& controller) = 0;
    virtual void clickPort(MatrixController& controller, qint64 port) = 0;
    /// A second click undoes what the first did.
    [[nodiscard]] virtual bool clickToggles(const MatrixController& controller) const = 0;

    [[nodiscard]] qsizetype currentCount() const;
    /// Works out everything anew, and tells of what is different.
    void refresh();
    void refreshPort(qint64 port);

private:
    void adoptPorts(const QList<Port>& ports);
    void removeRowsFrom(int position);
    void appendRows(const QList<Port>& ports);
    void refreshRows();
    void refreshHeader();

    const PortKind m_kind;
    QPointer<MatrixController> m_controller;
    const GlassPalette* m_palette;
    QList<SelectableRow> m_rows;
    QHash<qint64, int> m_positions;
    PaneContent m_content;
};

[[nodiscard]] bool isSourceLed(const MatrixController& controller);

} // namespace corvane
