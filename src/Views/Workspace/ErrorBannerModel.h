#pragma once

#include "Foundation/QuietTimer.h"
#include "Views/Shared/ControllerModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

struct ErrorBannerContent {
    Q_GADGET
    QML_VALUE_TYPE(errorBannerContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(QString message MEMBER message FINAL)

public:
    bool isShown = false;
    /// Stays while the banner leaves.
    QString message;

    bool operator==(const ErrorBannerContent&) const = default;
};

/// Shows a connected router's last error for four seconds; a new error is shown for four seconds of its own.
class ErrorBannerModel : public ControllerModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a CorvaneViewModel")
    Q_PROPERTY(corvane::ErrorBannerContent content READ content NOTIFY contentChanged FINAL)

public:
    ErrorBannerModel(SerialQueue& mainQueue, const GlassKit& theme, QObject* parent = nullptr);

    [[nodiscard]] const ErrorBannerContent& content() const { return m_content; }

    Q_INVOKABLE void dismiss();

protected:
    void refresh() override;

private:
    ErrorBannerContent m_content;
    QuietTimer m_dismissal;
};

} // namespace corvane
