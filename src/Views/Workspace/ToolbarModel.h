#pragma once

#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// What the toolbar of the workspace shows.
struct ToolbarContent {
    Q_GADGET
    QML_VALUE_TYPE(toolbarContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(QString panelText MEMBER panelText FINAL)
    Q_PROPERTY(QString panelSymbol MEMBER panelSymbol FINAL)
    Q_PROPERTY(int viewMode MEMBER viewMode FINAL)

public:
    bool isShown = false;
    /// The panel that is shown, or that it is the full router.
    QString panelText;
    QString panelSymbol;
    /// The position of the case in its enum.
    int viewMode = 0;

    bool operator==(const ToolbarContent&) const = default;
};

/// The toolbar: which panel is shown, and whether as a grid or as a list. It is only there while the router
/// is connected.
class ToolbarModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::ToolbarContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(QList<QString> viewModeTexts READ viewModeTexts CONSTANT FINAL)

public:
    using ScreenModel::ScreenModel;

    [[nodiscard]] const ToolbarContent& content() const { return m_content; }
    [[nodiscard]] static QStringList viewModeTexts();

    Q_INVOKABLE void chooseViewMode(int position);

protected:
    void refresh() override;

private:
    ToolbarContent m_content;
};

} // namespace corvane
