#pragma once

#include "Views/Salvos/SalvoListModel.h"

namespace corvane {

/// How many rows of each kind the manager has.
struct SalvoSheetContent {
    Q_GADGET
    QML_VALUE_TYPE(salvoSheetContent)
    Q_PROPERTY(bool isEmpty MEMBER isEmpty FINAL)
    Q_PROPERTY(int salvos MEMBER salvos FINAL)
    Q_PROPERTY(int previewLines MEMBER previewLines FINAL)
    Q_PROPERTY(int sectionTexts MEMBER sectionTexts FINAL)
    Q_PROPERTY(int notes MEMBER notes FINAL)
    Q_PROPERTY(int invitations MEMBER invitations FINAL)

public:
    /// There is no salvo, nor a panel that could have one, and so no row.
    bool isEmpty = true;
    int salvos = 0;
    int previewLines = 0;
    /// Heads and feet.
    int sectionTexts = 0;
    int notes = 0;
    int invitations = 0;

    bool operator==(const SalvoSheetContent&) const = default;
};

/// The manager of salvos: those of the active panel and those of the whole router, with what firing one would
/// change unfolded below it.
///
/// It works while it has a controller; whatever was being typed or asked is dropped with it.
class SalvoSheetModel : public SalvoListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::SalvoSheetContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool isRenaming READ isRenaming NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString renameDraft READ renameDraft WRITE setRenameDraft NOTIFY contentChanged FINAL)
    Q_PROPERTY(bool hasRenameConflict READ hasRenameConflict NOTIFY contentChanged FINAL)
    Q_PROPERTY(QString conflictMessage READ conflictMessage NOTIFY contentChanged FINAL)

public:
    /// Besides those of the base: the buttons that a salvo has under the pointer or the keyboard, each a
    /// `menuAction`.
    static constexpr int buttonsRole = lookRole + 1;

    explicit SalvoSheetModel(SerialQueue& mainQueue);

    void setController(MatrixController* controller) override;

    [[nodiscard]] const SalvoSheetContent& content() const { return m_content; }
    [[nodiscard]] const std::optional<QUuid>& expandedID() const { return m_expandedID; }
    [[nodiscard]] const std::optional<Salvo>& renaming() const { return m_renaming; }
    [[nodiscard]] bool isRenaming() const { return m_renaming.has_value(); }
    [[nodiscard]] const QString& renameDraft() const { return m_renameDraft; }
    void setRenameDraft(const QString& draft);
    /// The name that was wanted and is taken.
    [[nodiscard]] const std::optional<QString>& renameConflict() const { return m_renameConflict; }
    [[nodiscard]] bool hasRenameConflict() const { return m_renameConflict.has_value(); }
    [[nodiscard]] QString conflictMessage() const;

    /// A blank name, or the old one, changes nothing.
    Q_INVOKABLE void commitRename();
    Q_INVOKABLE void cancelRename();
    Q_INVOKABLE void clearConflict();

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
    [[nodiscard]] QList<MenuAction> menu(int row) override;
    [[nodiscard]] QList<MenuAction> actions(int row) override;
    /// Unfolds the preview and folds any other, or folds this one.
    void press(int row) override;

signals:
    void contentChanged();

protected:
    [[nodiscard]] QList<SalvoRow> makeRows() override;

private:
    [[nodiscard]] QList<SalvoRow> mainSection() const;
    [[nodiscard]] QList<SalvoRow> fullRouterSection() const;
    [[nodiscard]] QList<SalvoRow> salvoRows(const QList<Salvo>& salvos) const;
    [[nodiscard]] QList<SalvoRow> previewOf(const Salvo& salvo) const;
    [[nodiscard]] static QList<MenuAction> buttons();
    [[nodiscard]] MenuAction renameAction(const Salvo& salvo);
    [[nodiscard]] MenuAction toggleAction(const Salvo& salvo);
    void toggle(const QUuid& id);
    void refreshContent(const QList<SalvoRow>& rows, bool isEmpty);
    void beginRename(const QUuid& id);

    SalvoSheetContent m_content;
    std::optional<QUuid> m_expandedID;
    std::optional<Salvo> m_renaming;
    QString m_renameDraft;
    std::optional<QString> m_renameConflict;
};

} // namespace corvane
