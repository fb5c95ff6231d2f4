#pragma once

#include "Controllers/MatrixController.h"
#include "Theme/GlassKit.h"

#include <QPointer>

namespace corvane {

/// What the small screens around the grid have in common: they show a controller, and work out anew what they
/// say when something of it changes that is not a tally.
///
/// A subclass keeps its last content and tells of it only when it really changed. Main thread.
class ScreenModel : public QObject {
    Q_OBJECT

public:
    /// `theme` must outlive the model. The controller may be replaced, and may go at any time.
    explicit ScreenModel(const GlassKit& theme, QObject* parent = nullptr);

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    virtual void setController(MatrixController* controller);

signals:
    void contentChanged();

protected:
    [[nodiscard]] const GlassPalette& palette() const { return m_theme.palette(); }

    /// Called whenever anything may be said differently; `controller()` is there.
    virtual void refresh() = 0;

    /// For `refresh`: takes over the new content and tells of it, if it differs.
    template <typename Content>
    void replace(Content& content, const Content& newContent)
    {
        if (content == newContent)
            return;
        content = newContent;
        emit contentChanged();
    }

private:
    void refreshIfPossible();

    const GlassKit& m_theme;
    QPointer<MatrixController> m_controller;
};

} // namespace corvane
