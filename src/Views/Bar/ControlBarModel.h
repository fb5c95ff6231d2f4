#pragma once

#include "Theme/MatrixZoom.h"
#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

namespace ControlBar {

/// Whether the bar would show anything. A compact layout would also hold the mode pickers there; no layout is
/// compact yet.
[[nodiscard]] bool hasContent(const MatrixController& controller, bool compactWidth);

} // namespace ControlBar

/// What the floating bar offers and tells.
struct ControlBarContent {
    Q_GADGET
    QML_VALUE_TYPE(controlBarContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(bool showsLevels MEMBER showsLevels FINAL)
    Q_PROPERTY(QList<QString> levels MEMBER levels FINAL)
    Q_PROPERTY(int level MEMBER level FINAL)
    Q_PROPERTY(QString followText MEMBER followText FINAL)
    Q_PROPERTY(QString followSymbol MEMBER followSymbol FINAL)
    Q_PROPERTY(QColor followTint MEMBER followTint FINAL)
    Q_PROPERTY(bool showsZoom MEMBER showsZoom FINAL)
    Q_PROPERTY(bool showsTake MEMBER showsTake FINAL)
    Q_PROPERTY(bool dividesZoom MEMBER dividesZoom FINAL)
    Q_PROPERTY(bool dividesTake MEMBER dividesTake FINAL)
    Q_PROPERTY(bool canTake MEMBER canTake FINAL)
    Q_PROPERTY(bool canClear MEMBER canClear FINAL)
    Q_PROPERTY(QString stagedSource MEMBER stagedSource FINAL)
    Q_PROPERTY(QString targetText MEMBER targetText FINAL)
    Q_PROPERTY(QString lockedText MEMBER lockedText FINAL)
    Q_PROPERTY(QString emptyHint MEMBER emptyHint FINAL)

public:
    bool isShown = false;
    bool showsLevels = false;
    QStringList levels;
    /// The position of the level that is shown; -1 if the router has no such level.
    int level = -1;
    QString followText;
    QString followSymbol;
    QColor followTint;
    bool showsZoom = false;
    bool showsTake = false;
    /// There is something to divide it from, ahead of it.
    bool dividesZoom = false;
    bool dividesTake = false;
    bool canTake = false;
    bool canClear = false;
    /// What a take would do; both empty while there is nothing to take.
    QString stagedSource;
    QString targetText;
    /// In place of the target: what of it a take will refuse. Empty while nothing that is staged is locked.
    QString lockedText;
    /// How to get there; empty when there is something to take, or something to say in its place.
    QString emptyHint;

    bool operator==(const ControlBarContent&) const = default;
};

class ControlBarModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::ControlBarContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(corvane::MatrixZoom* zoom READ zoom CONSTANT FINAL)

public:
    /// `theme` and `zoom` must outlive the model.
    ControlBarModel(const GlassKit& theme, MatrixZoom& zoom, QObject* parent = nullptr);

    [[nodiscard]] const ControlBarContent& content() const { return m_content; }
    [[nodiscard]] MatrixZoom* zoom() const { return &m_zoom; }
    void setController(MatrixController* controller) override;

    Q_INVOKABLE void chooseLevel(int position);
    /// From following all levels to the one that is shown, and back.
    Q_INVOKABLE void toggleFollow();
    Q_INVOKABLE void clearPending();
    Q_INVOKABLE void confirmTake();

protected:
    void refresh() override;

private:
    void keepBreakawayOnPrimaryLevel();
    void tellLevels(ControlBarContent& content) const;
    void tellStaging(ControlBarContent& content) const;

    MatrixZoom& m_zoom;
    /// As of the last refresh.
    qint64 m_primaryLevel = 0;
    ControlBarContent m_content;
};

} // namespace corvane
