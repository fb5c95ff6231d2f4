#pragma once

#include "Views/Shared/ScreenModel.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Which take mode and which direction are on, and what they are for. Positions are those of the enums'
/// cases.
struct RoutingModeClusterContent {
    Q_GADGET
    QML_VALUE_TYPE(routingModeClusterContent)
    Q_PROPERTY(int takeMode MEMBER takeMode FINAL)
    Q_PROPERTY(QString takeModeTip MEMBER takeModeTip FINAL)
    Q_PROPERTY(bool showsDirection MEMBER showsDirection FINAL)
    Q_PROPERTY(int direction MEMBER direction FINAL)
    Q_PROPERTY(QString directionTip MEMBER directionTip FINAL)

public:
    int takeMode = 0;
    QString takeModeTip;
    bool showsDirection = false;
    int direction = 0;
    QString directionTip;

    bool operator==(const RoutingModeClusterContent&) const = default;
};

class RoutingModeClusterModel : public ScreenModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a WorkspaceModel")
    Q_PROPERTY(corvane::RoutingModeClusterContent content READ content NOTIFY contentChanged FINAL)
    Q_PROPERTY(QList<QString> takeModeTexts READ takeModeTexts CONSTANT FINAL)
    Q_PROPERTY(QList<QString> takeModeSymbols READ takeModeSymbols CONSTANT FINAL)
    Q_PROPERTY(QList<QString> directionTexts READ directionTexts CONSTANT FINAL)

public:
    using ScreenModel::ScreenModel;

    [[nodiscard]] const RoutingModeClusterContent& content() const { return m_content; }
    [[nodiscard]] static QStringList takeModeTexts();
    [[nodiscard]] static QStringList takeModeSymbols();
    [[nodiscard]] static QStringList directionTexts();

    Q_INVOKABLE void chooseTakeMode(int position);
    Q_INVOKABLE void chooseDirection(int position);

protected:
    void refresh() override;

private:
    RoutingModeClusterContent m_content;
};

} // namespace corvane
