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

/// A salvo on screen, besides its name: what can be done with it now, and in what words.
struct SalvoLook {
    Q_GADGET
    QML_VALUE_TYPE(salvoLook)
    Q_PROPERTY(corvane::SalvoStatus status MEMBER status FINAL)
    Q_PROPERTY(bool isInSync MEMBER isInSync FINAL)
    Q_PROPERTY(bool canFire MEMBER canFire FINAL)
    Q_PROPERTY(QString fireName MEMBER fireName FINAL)
    Q_PROPERTY(QString updateName MEMBER updateName FINAL)
    Q_PROPERTY(QString updateTip MEMBER updateTip FINAL)

public:
    SalvoStatus status;
    /// There is nothing to update.
    bool isInSync = false;
    bool canFire = false;
    /// What screen readers call the buttons.
    QString fireName;
    QString updateName;
    QString updateTip;

    bool operator==(const SalvoLook&) const = default;
};

/// A dialog about one salvo.
struct SalvoQuestion {
    Q_GADGET
    QML_VALUE_TYPE(salvoQuestion)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString message MEMBER message FINAL)
    Q_PROPERTY(QString acceptText MEMBER acceptText FINAL)
    Q_PROPERTY(bool canAccept MEMBER canAccept FINAL)

public:
    bool isShown = false;
    QString title;
    QString message;
    QString acceptText;
    /// Otherwise it can only be cancelled.
    bool canAccept = true;

    bool operator==(const SalvoQuestion&) const = default;
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

[[nodiscard]] SalvoLook look(const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller);
[[nodiscard]] SalvoQuestion fireQuestion(
    const Salvo& salvo, const SalvoDiff& diff, const MatrixController& controller);
[[nodiscard]] SalvoQuestion deleteQuestion(const Salvo& salvo);
[[nodiscard]] SalvoQuestion updateQuestion(const Salvo& salvo);

/// Before a salvo is captured for this panel, or for the whole router. The manager says how many destinations
/// that are, the strip doesn't.
[[nodiscard]] QString newSalvoMessage(const std::optional<SubPanel>& panel, bool countsDestinations);
/// "Salvo 3", the first name from the number of `salvos` on that none of them has in any case.
[[nodiscard]] QString newSalvoName(const QList<Salvo>& salvos);
/// Stands where a panel has no salvos.
[[nodiscard]] QString noneYet(const SubPanel& panel);

} // namespace salvoTexts

} // namespace corvane
