#pragma once

#include "Views/Salvos/SalvoDiffs.h"
#include "Views/Salvos/SalvoTexts.h"

namespace corvane {

/// What the strip and the manager of salvos ask before they do it: how a new salvo is to be called, and
/// whether one is to be fired, updated or deleted.
///
/// A dialog follows the router while it is open, and closes when its salvo goes. Main thread.
class SalvoDialogs : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a screen's model")
    Q_PROPERTY(corvane::SalvoQuestion fireConfirmation READ fireConfirmation NOTIFY changed FINAL)
    /// Whether to delete or to update.
    Q_PROPERTY(corvane::SalvoQuestion question READ question NOTIFY changed FINAL)
    Q_PROPERTY(bool showingNew READ showingNew NOTIFY changed FINAL)
    Q_PROPERTY(QString newMessage READ newMessage NOTIFY changed FINAL)
    Q_PROPERTY(QString draftName READ draftName WRITE setDraftName NOTIFY changed FINAL)

public:
    /// Where they are asked; only the manager says how many destinations a new salvo captures.
    enum class Place { strip, sheet };

    /// `diffs` must outlive it.
    SalvoDialogs(SalvoDiffs& diffs, Place place);

    /// Another controller drops whatever is being asked.
    void setController(MatrixController* controller);

    [[nodiscard]] const std::optional<Salvo>& firing() const { return m_firing; }
    [[nodiscard]] const std::optional<Salvo>& deleting() const { return m_deleting; }
    [[nodiscard]] const std::optional<Salvo>& updating() const { return m_updating; }
    void setFiring(const std::optional<Salvo>& salvo);
    void setDeleting(const std::optional<Salvo>& salvo);
    void setUpdating(const std::optional<Salvo>& salvo);

    [[nodiscard]] const SalvoQuestion& fireConfirmation() const { return m_fireConfirmation; }
    [[nodiscard]] SalvoQuestion question() const;

    [[nodiscard]] bool showingNew() const { return m_showingNew; }
    [[nodiscard]] QString newMessage() const;
    [[nodiscard]] const QString& draftName() const { return m_draftName; }
    void setDraftName(const QString& name);
    [[nodiscard]] const std::optional<QUuid>& draftScope() const { return m_draftScope; }

    Q_INVOKABLE void beginNew();
    /// A blank name saves nothing; one that is taken in any case updates that salvo.
    Q_INVOKABLE void commitNew();
    /// Does nothing once nothing can be fired.
    Q_INVOKABLE void fire();
    /// Deletes or updates.
    Q_INVOKABLE void confirm();
    /// Closes whatever is open.
    Q_INVOKABLE void cancel();

signals:
    void changed();

private:
    void follow();
    void refreshConfirmation();
    void watchFiring(const std::optional<Salvo>& salvo);
    [[nodiscard]] std::optional<Salvo> current(const std::optional<Salvo>& salvo) const;
    [[nodiscard]] std::optional<SubPanel> draftPanel() const;

    SalvoDiffs& m_diffs;
    const Place m_place;
    QPointer<MatrixController> m_controller;
    std::optional<Salvo> m_firing;
    std::optional<Salvo> m_deleting;
    std::optional<Salvo> m_updating;
    SalvoQuestion m_fireConfirmation;
    bool m_showingNew = false;
    QString m_draftName;
    std::optional<QUuid> m_draftScope;
};

} // namespace corvane
