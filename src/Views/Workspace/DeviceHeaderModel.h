#pragma once

#include "Theme/Tints.h"
#include "Views/Shared/ScreenModel.h"

namespace corvane {

/// What the header tells of the device.
struct DeviceHeaderContent {
    Q_GADGET
    QML_VALUE_TYPE(deviceHeaderContent)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(QColor tint MEMBER tint FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)
    Q_PROPERTY(QString specs MEMBER specs FINAL)
    Q_PROPERTY(corvane::StatusLook status MEMBER status FINAL)

public:
    QString symbol;
    QColor tint;
    /// The model, or what the vendor is called while the device hasn't told.
    QString title;
    /// The size, of the active panel if there is one, and the level that is shown.
    QString specs;
    StatusLook status;

    bool operator==(const DeviceHeaderContent&) const = default;
};

class DeviceHeaderModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::DeviceHeaderContent content READ content NOTIFY contentChanged FINAL)

public:
    using ScreenModel::ScreenModel;

    [[nodiscard]] const DeviceHeaderContent& content() const { return m_content; }

protected:
    void refresh() override;

private:
    [[nodiscard]] QString specs() const;

    DeviceHeaderContent m_content;
};

} // namespace corvane
