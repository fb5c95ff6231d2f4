#pragma once

#include "Views/PaneModel.h"

namespace corvane {

/// The destinations of the list, each with what feeds it on the shown level. Destination-led a click aims at
/// one, or puts it into the gang; source-led it gives it the focused source.
class DestinationPaneModel : public PaneModel {
    Q_OBJECT

public:
    explicit DestinationPaneModel(QObject* parent = nullptr);

protected:
    [[nodiscard]] const QList<Port>& shownPorts(const MatrixController& controller) const override;
    [[nodiscard]] SelectableRow makeRow(const MatrixController& controller, const Port& port) const override;
    void tellHeader(const MatrixController& controller, PaneContent& content) const override;
    void observe(const MatrixController& controller) override;
    void clickPort(MatrixController& controller, qint64 port) override;
    [[nodiscard]] bool clickToggles(const MatrixController& controller) const override;

private:
    [[nodiscard]] QString subtitle(const MatrixController& controller) const;
};

} // namespace corvane
