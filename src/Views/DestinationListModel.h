#pragma once

#include "Views/DestinationPaneModel.h"
#include "Views/SourcePaneModel.h"

namespace corvane {

/// The two panes of the list. They work only as long as the list is shown. Main thread.
class DestinationListModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::MatrixController* controller READ controller WRITE setController NOTIFY
            controllerChanged FINAL)
    Q_PROPERTY(bool dark READ isDark WRITE setDark NOTIFY darkChanged FINAL)
    Q_PROPERTY(corvane::PaneModel* sources READ sources CONSTANT FINAL)
    Q_PROPERTY(corvane::PaneModel* destinations READ destinations CONSTANT FINAL)

public:
    using QObject::QObject;

    [[nodiscard]] MatrixController* controller() const { return m_sources.controller(); }
    /// May be null: the panes are then empty.
    void setController(MatrixController* controller);
    [[nodiscard]] bool isDark() const { return m_isDark; }
    void setDark(bool isDark);
    [[nodiscard]] PaneModel* sources() { return &m_sources; }
    [[nodiscard]] PaneModel* destinations() { return &m_destinations; }

signals:
    void controllerChanged();
    void darkChanged();

private:
    bool m_isDark = true;
    SourcePaneModel m_sources;
    DestinationPaneModel m_destinations;
};

} // namespace corvane
