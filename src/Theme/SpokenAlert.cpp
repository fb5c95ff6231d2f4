#include "Theme/SpokenAlert.h"

namespace corvane {

namespace {

void sendToScreenReader(QAccessibleEvent& alert)
{
    QAccessible::updateAccessibility(&alert);
}

SpokenAlert::Send& way()
{
    static SpokenAlert::Send send = sendToScreenReader;
    return send;
}

} // namespace

void SpokenAlert::sendBy(Send send)
{
    way() = send ? std::move(send) : sendToScreenReader;
}

void SpokenAlert::setMessage(const QString& message)
{
    if (message == m_message)
        return;
    m_message = message;
    emit messageChanged();
    if (message.isEmpty() || !parent())
        return;
    QAccessibleEvent alert(parent(), QAccessible::Alert);
    way()(alert);
}

} // namespace corvane
