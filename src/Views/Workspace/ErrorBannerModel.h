#pragma once

#include "Foundation/QuietTimer.h"
#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Shows a connected router's last error for four seconds; a new error is shown for four seconds of its own.
/// While it is being read it stays, and then has four seconds again.
class ErrorBannerModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(QString message READ message NOTIFY contentChanged FINAL)

public:
    ErrorBannerModel(SerialQueue& mainQueue, const GlassKit& theme, QObject* parent = nullptr);

    /// Empty while there is nothing to tell.
    [[nodiscard]] const QString& message() const { return m_message; }

    Q_INVOKABLE void dismiss();
    /// The pointer or the keyboard has come to the banner or left it.
    Q_INVOKABLE void setBeingRead(bool isBeingRead);

protected:
    void refresh() override;

private:
    void restartDismissal();

    QString m_message;
    bool m_isBeingRead = false;
    QuietTimer m_dismissal;
};

} // namespace corvane
