#pragma once

#include "Controllers/MatrixController.h"
#include "Foundation/QuietTimer.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// How far the router has confirmed a large salvo.
struct SalvoProgressContent {
    Q_GADGET
    QML_VALUE_TYPE(salvoProgressContent)
    Q_PROPERTY(bool isShown MEMBER isShown FINAL)
    Q_PROPERTY(double fraction MEMBER fraction FINAL)
    Q_PROPERTY(QString text MEMBER text FINAL)

public:
    bool isShown = false;
    /// 0 to 1.
    double fraction = 0;
    QString text;

    bool operator==(const SalvoProgressContent&) const = default;
};

/// Tells it a few times a second, and so says nothing of routers that confirm at once. Main thread.
class SalvoProgressModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a screen's model")
    Q_PROPERTY(corvane::SalvoProgressContent content READ content NOTIFY contentChanged FINAL)

public:
    static constexpr auto pace = std::chrono::milliseconds(250);

    /// `mainQueue` must outlive it.
    explicit SalvoProgressModel(SerialQueue& mainQueue);

    void setController(MatrixController* controller);
    [[nodiscard]] const SalvoProgressContent& content() const { return m_content; }

signals:
    void contentChanged();

private:
    void refresh();

    QPointer<MatrixController> m_controller;
    SalvoProgressContent m_content;
    QuietTimer m_turn;
};

} // namespace corvane
