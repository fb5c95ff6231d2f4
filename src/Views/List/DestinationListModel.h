#pragma once

#include "Views/List/DestinationPaneModel.h"
#include "Views/List/SourcePaneModel.h"

namespace corvane {

/// The two panes of the list. A list that is hidden is given no controller, and so does nothing. Main thread.
class DestinationListModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::PaneModel* sources READ sources CONSTANT FINAL)
    Q_PROPERTY(corvane::PaneModel* destinations READ destinations CONSTANT FINAL)

public:
    /// Both must outlive the model.
    DestinationListModel(SerialQueue& mainQueue, const GlassKit& theme);

    /// May be null: the panes are then empty. A click that is held acts first.
    void setController(MatrixController* controller);
    [[nodiscard]] PaneModel* sources() { return &m_sources; }
    [[nodiscard]] PaneModel* destinations() { return &m_destinations; }

private:
    PaneClicks m_clicks;
    SourcePaneModel m_sources;
    DestinationPaneModel m_destinations;
};

} // namespace corvane
