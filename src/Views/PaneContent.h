#pragma once

#include "Controllers/MatrixController.h"

#include <QColor>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// A button in the header of a pane.
struct PaneAction {
    QString label;
    QString symbol;
    void (*action)(MatrixController& controller) = nullptr;

    bool operator==(const PaneAction&) const = default;
};

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
    Q_PROPERTY(QList<QString> actionLabels READ actionLabels FINAL)
    Q_PROPERTY(QList<QString> actionSymbols READ actionSymbols FINAL)

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
    QList<PaneAction> headerActions;

    [[nodiscard]] QStringList actionLabels() const;
    [[nodiscard]] QStringList actionSymbols() const;

    bool operator==(const PaneContent&) const = default;
};

} // namespace corvane
