#pragma once

#include "Views/Salvos/SalvoListModel.h"

namespace corvane {

/// What the strip of salvos says besides its chips.
struct SalvoStripContent {
    Q_GADGET
    QML_VALUE_TYPE(salvoStripContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(QString noneYet MEMBER noneYet FINAL)
    Q_PROPERTY(QString newTip MEMBER newTip FINAL)

public:
    bool isShown = false;
    /// Stands where a panel has no salvos, or empty.
    QString noneYet;
    QString newTip;

    bool operator==(const SalvoStripContent&) const = default;
};

/// The salvos of the active panel, or of the whole router without one, each a chip that fires it after a
/// question.
class SalvoStripModel : public SalvoListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::SalvoStripContent content READ content NOTIFY contentChanged FINAL)

public:
    explicit SalvoStripModel(SerialQueue& mainQueue);

    [[nodiscard]] const SalvoStripContent& content() const { return m_content; }
    void setController(MatrixController* controller) override;

    [[nodiscard]] QList<MenuAction> menu(int row) override;
    void press(int row) override { fire(row); }

signals:
    void contentChanged();

protected:
    [[nodiscard]] QList<SalvoRow> makeRows() override;

private:
    void refreshContent();

    SalvoStripContent m_content;
};

} // namespace corvane
