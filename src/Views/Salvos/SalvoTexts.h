#pragma once

#include "Controllers/MatrixController.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// One line of the preview of what firing a salvo would do. Either the parts of a crosspoint that would
/// change, or a sentence in `text`.
struct SalvoPreviewLine {
    Q_GADGET
    QML_VALUE_TYPE(salvoPreviewLine)
    Q_PROPERTY(bool isChange MEMBER isChange FINAL)
    Q_PROPERTY(bool isLocked MEMBER isLocked FINAL)
    Q_PROPERTY(bool isWarning MEMBER isWarning FINAL)
    Q_PROPERTY(QString level MEMBER level FINAL)
    Q_PROPERTY(QString destination MEMBER destination FINAL)
    Q_PROPERTY(QString source MEMBER source FINAL)
    Q_PROPERTY(QString before MEMBER before FINAL)
    Q_PROPERTY(QString text MEMBER text FINAL)

public:
    /// A crosspoint that would change; all else is a sentence.
    bool isChange = false;
    /// A sentence on a locked destination.
    bool isLocked = false;
    /// A sentence to be noticed.
    bool isWarning = false;
    /// Empty where the router has one level only.
    QString level;
    QString destination;
    QString source;
    /// What feeds the destination now; empty where nobody knows.
    QString before;
    /// Also of a change: its parts in one line, as they are read out.
    QString text;

    bool operator==(const SalvoPreviewLine&) const = default;
};

/// The line under a salvo's name.
struct SalvoStatus {
    Q_GADGET
    QML_VALUE_TYPE(salvoStatus)
    Q_PROPERTY(QString text MEMBER text FINAL)
    Q_PROPERTY(bool isActive MEMBER isActive FINAL)
    Q_PROPERTY(QString lockedCount MEMBER lockedCount FINAL)

public:
    QString text;
    /// The live routing is what the salvo holds.
    bool isActive = false;
    /// How many of its destinations are locked; empty for none.
    QString lockedCount;

    bool operator==(const SalvoStatus&) const = default;
};

/// What the screens say of a salvo, worded from its `SalvoDiff`. `diff` is always the salvo's own, against
/// the controller's state. Counts agree with their nouns in English.
namespace salvoTexts {

/// The live routing is what the salvo holds, as far as it says anything.
[[nodiscard]] bool isInSync(const SalvoDiff& diff);
/// Some route of it would be sent.
[[nodiscard]] bool canFire(const SalvoDiff& diff, const MatrixController& controller);

[[nodiscard]] SalvoStatus status(
    const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller);
[[nodiscard]] QList<SalvoPreviewLine> preview(
    const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller);

[[nodiscard]] QString fireTitle(const Salvo& salvo);
/// What is asked before a salvo is fired.
[[nodiscard]] QString fireMessage(
    const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller);
[[nodiscard]] QString fireButton(const SalvoDiff& diff);

} // namespace salvoTexts

} // namespace corvane
