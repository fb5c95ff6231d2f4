#pragma once

#include "Views/List/PaneModel.h"

namespace corvane {

/// The destinations of the list, each with what feeds it on the shown level. Destination-led a click aims at
/// one, or puts it into the gang; source-led it gives it the focused source.
class DestinationPaneModel : public PaneModel {
    Q_OBJECT

public:
    DestinationPaneModel(PaneClicks& clicks, const GlassKit& theme);

protected:
    [[nodiscard]] const QList<Port>& shownPorts(const MatrixController& controller) const override;
    [[nodiscard]] SelectableRow makeRow(const MatrixController& controller, const Port& port) const override;
    void fillHeader(MatrixController& controller, PaneContent& content) const override;
    void observe(const MatrixController& controller) override;
    void clickPort(MatrixController& controller, qint64 port) override;
    [[nodiscard]] std::optional<Sending> sending(
        const MatrixController& controller, qint64 port) const override;

private:
    [[nodiscard]] QString subtitle(const MatrixController& controller) const;
};

} // namespace corvane
