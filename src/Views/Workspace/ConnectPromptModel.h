#pragma once

#include "Theme/Tints.h"
#include "Views/Shared/ScreenModel.h"

namespace corvane {

/// What a router says of itself while it is not connected.
struct ConnectPromptContent {
    Q_GADGET
    QML_VALUE_TYPE(connectPromptContent)
    Q_PROPERTY(QString symbol MEMBER symbol FINAL)
    Q_PROPERTY(QColor tint MEMBER tint FINAL)
    Q_PROPERTY(QString name MEMBER name FINAL)
    Q_PROPERTY(QString address MEMBER address FINAL)
    Q_PROPERTY(corvane::StatusLook status MEMBER status FINAL)
    Q_PROPERTY(QString message MEMBER message FINAL)
    Q_PROPERTY(bool isFailure MEMBER isFailure FINAL)
    Q_PROPERTY(bool showsProgress MEMBER showsProgress FINAL)
    Q_PROPERTY(double progress MEMBER progress FINAL)
    Q_PROPERTY(QString progressText MEMBER progressText FINAL)
    Q_PROPERTY(QString buttonText MEMBER buttonText FINAL)
    Q_PROPERTY(QString buttonSymbol MEMBER buttonSymbol FINAL)

public:
    QString symbol;
    QColor tint;
    QString name;
    QString address;
    StatusLook status;
    /// What the attempt is at, or else why the connection failed or was lost. May be empty.
    QString message;
    bool isFailure = false;
    /// Only while it is known how far the reading of the device has come.
    bool showsProgress = false;
    /// 0 to 1.
    double progress = 0;
    /// For screen readers.
    QString progressText;
    QString buttonText;
    QString buttonSymbol;

    bool operator==(const ConnectPromptContent&) const = default;
};

class ConnectPromptModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::ConnectPromptContent content READ content NOTIFY contentChanged FINAL)

public:
    using ScreenModel::ScreenModel;

    [[nodiscard]] const ConnectPromptContent& content() const { return m_content; }

    /// Connects, or calls off the attempt that is under way.
    Q_INVOKABLE void pressButton();

protected:
    void refresh() override;

private:
    ConnectPromptContent m_content;
};

} // namespace corvane
