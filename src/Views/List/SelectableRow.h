#pragma once

#include "Model/RouterModels.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// One port as a pane of the list shows it.
struct SelectableRow {
    Q_GADGET
    QML_VALUE_TYPE(selectableRow)
    Q_PROPERTY(QString number READ numberText FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString detail READ detailText FINAL)
    Q_PROPERTY(bool isCurrent MEMBER isCurrent FINAL)
    Q_PROPERTY(bool isPending MEMBER isPending FINAL)
    Q_PROPERTY(bool isHeld MEMBER isHeld FINAL)
    Q_PROPERTY(bool locked MEMBER locked FINAL)
    Q_PROPERTY(bool hasBadge MEMBER hasBadge FINAL)
    Q_PROPERTY(QString badgeSymbol READ badgeSymbol FINAL)
    Q_PROPERTY(bool showsCheckmark READ showsCheckmark FINAL)

public:
    /// The port's own.
    qint64 index = 0;
    QString title;
    /// What screen readers call the port: where it has no name, what it is and its number.
    QString spokenTitle;
    /// The second line. Absent where nothing is known; a name that is empty is known.
    std::optional<QString> detail;
    std::optional<QString> spokenDetail;
    bool isCurrent = false;
    bool isPending = false;
    /// A click was felt and acts as soon as it is known to be no double click.
    bool isHeld = false;
    bool locked = false;
    /// The row can be put into the gang and taken out of it.
    bool hasBadge = false;

    [[nodiscard]] qint64 key() const { return index; }
    /// As people count.
    [[nodiscard]] QString numberText() const { return QString::number(index + 1); }
    [[nodiscard]] QString detailText() const { return detail.value_or(QString()); }
    [[nodiscard]] QString badgeSymbol() const;
    /// Where a second line tells nothing, a mark has to say that this is the one.
    [[nodiscard]] bool showsCheckmark() const { return isCurrent && !detail; }

    /// What a click on the badge does, in words.
    [[nodiscard]] QString badgeName() const;
    /// All that the row says, in one text.
    [[nodiscard]] QString accessibleName() const;
    /// What is about to happen to it; empty if nothing is.
    [[nodiscard]] QString accessibleHelp() const;

    bool operator==(const SelectableRow&) const = default;
};

} // namespace corvane
