#pragma once

#include "Views/List/PaneModel.h"

namespace corvane {

/// The sources of the list. Destination-led a click sends one to the destinations that are aimed at;
/// source-led it is the one that destinations are then given.
class SourcePaneModel : public PaneModel {
    Q_OBJECT

public:
    SourcePaneModel(PaneClicks& clicks, const GlassKit& theme);

protected:
    [[nodiscard]] const QList<Port>& shownPorts(const MatrixController& controller) const override;
    [[nodiscard]] SelectableRow makeRow(const MatrixController& controller, const Port& port) const override;
    void fillHeader(MatrixController& controller, PaneContent& content) const override;
    void observe(const MatrixController& controller) override;
    void clickPort(MatrixController& controller, qint64 port) override;
    [[nodiscard]] std::optional<Sending> sending(
        const MatrixController& controller, qint64 port) const override;

private:
    void onCrosspoint(qint64 level, qint64 destination);
};

} // namespace corvane
