#pragma once

#include "Views/Shared/MenuAction.h"

#include <QColor>

namespace corvane {

/// What the header of a pane says, and what the rows below it have in common.
struct PaneContent {
    Q_GADGET
    QML_VALUE_TYPE(paneContent)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString subtitle MEMBER subtitle FINAL)
    Q_PROPERTY(bool subtitleIsPriority MEMBER subtitleIsPriority FINAL)
    Q_PROPERTY(int count MEMBER count FINAL)
    Q_PROPERTY(QString widestNumber MEMBER widestNumber FINAL)
    Q_PROPERTY(QColor tint MEMBER tint FINAL)
    Q_PROPERTY(QVariantList actions READ actions FINAL)

public:
    QString title;
    /// Empty if there is none.
    QString subtitle;
    /// The subtitle is more important than the title.
    bool subtitleIsPriority = false;
    int count = 0;
    /// As wide as the widest number of a row.
    QString widestNumber;
    QColor tint;
    /// From left to right.
    QList<MenuAction> headerActions;

    [[nodiscard]] QVariantList actions() const { return toVariants(headerActions); }

    bool operator==(const PaneContent&) const = default;
};

} // namespace corvane
