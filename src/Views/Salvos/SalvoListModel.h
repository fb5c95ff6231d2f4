#pragma once

#include "Views/Salvos/SalvoDialogs.h"
#include "Views/Salvos/SalvoProgressModel.h"
#include "Views/Salvos/SalvoRow.h"
#include "Views/Shared/RowListModel.h"

namespace corvane {

/// Salvos in a list, and what is being asked about them.
///
/// The controller may be replaced, and may go at any time; without one there are no rows. Main thread.
class SalvoListModel : public KeyedRowListModel<SalvoRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A base")
    /// An item that shows a salvo watches it here, or it isn't told of changes.
    Q_PROPERTY(corvane::SalvoDiffs* diffs READ diffs CONSTANT FINAL)
    Q_PROPERTY(corvane::SalvoDialogs* dialogs READ dialogs CONSTANT FINAL)
    Q_PROPERTY(corvane::SalvoProgressModel* progress READ progress CONSTANT FINAL)

public:
    /// The row as a whole, a `SalvoRow`; and for a salvo its `SalvoLook`. The display role is the text.
    enum Role { rowRole = Qt::UserRole, lookRole };

    [[nodiscard]] SalvoDiffs* diffs() { return &m_diffs; }
    [[nodiscard]] SalvoDialogs* dialogs() { return &m_dialogs; }
    [[nodiscard]] SalvoProgressModel* progress() { return &m_progress; }
    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    virtual void setController(MatrixController* controller);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] RowSpeech speech(int row) const override;
    [[nodiscard]] bool isReachable(int row) const override;
    /// The first salvo.
    [[nodiscard]] int startRow() const override;

    /// What the buttons of a salvo do.
    Q_INVOKABLE void fire(int row);
    Q_INVOKABLE void update(int row);
    /// What the delete key does.
    Q_INVOKABLE void askToDelete(int row) { m_dialogs.setDeleting(salvoAt(row)); }
    /// The menu for QML, and what one of its actions does.
    Q_INVOKABLE [[nodiscard]] QVariantList menuOf(int row) { return toVariants(menu(row)); }
    Q_INVOKABLE void choose(int row, const QString& text) { runAction(menu(row), text); }

protected:
    SalvoListModel(SerialQueue& mainQueue, SalvoDialogs::Place place);

    /// The rows as they are to be; `controller()` is there.
    [[nodiscard]] virtual QList<SalvoRow> makeRows() = 0;
    void reload();

    /// Absent where the row is none.
    [[nodiscard]] std::optional<Salvo> salvoAt(int row) const;
    [[nodiscard]] std::optional<Salvo> salvo(const QUuid& id) const;
    [[nodiscard]] const SalvoDiff& diff(const Salvo& salvo) const { return m_diffs.of(salvo); }
    [[nodiscard]] SalvoLook look(const Salvo& salvo) const;
    [[nodiscard]] static SalvoRow rowFor(const Salvo& salvo);

    // What a menu offers for a salvo.
    [[nodiscard]] MenuAction fireAction(const Salvo& salvo);
    [[nodiscard]] MenuAction updateAction(const Salvo& salvo, const QString& text);
    [[nodiscard]] MenuAction deleteAction(const Salvo& salvo, const QString& text);

private:
    void tellOf(const QUuid& id);
    void tellOfAll();

    QPointer<MatrixController> m_controller;
    /// Asking for a diff keeps it.
    mutable SalvoDiffs m_diffs;
    /// As they were last asked for.
    mutable QHash<QUuid, SalvoLook> m_looks;
    SalvoDialogs m_dialogs;
    SalvoProgressModel m_progress;
};

} // namespace corvane
