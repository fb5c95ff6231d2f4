#pragma once

#include <QAccessible>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace corvane {

/// Interrupts a screen reader with the item that it belongs to: once for each `message` that appears or takes
/// the place of another. The item's name and role say what there is to hear.
class SpokenAlert : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// Empty while there is nothing to tell.
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged FINAL)

public:
    /// `item` is what the screen reader hears of.
    explicit SpokenAlert(QObject* item = nullptr) : QObject(item) { }

    [[nodiscard]] const QString& message() const { return m_message; }
    void setMessage(const QString& message);

    /// For tests, in place of Qt's own way, which tells nothing while no screen reader listens.
    using Send = std::function<void(QAccessibleEvent& alert)>;
    static void sendBy(Send send);

signals:
    void messageChanged();

private:
    QString m_message;
};

} // namespace corvane
