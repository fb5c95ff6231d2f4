#include "emulator/KumoSession.h"

#include "emulator/KumoEmulator.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QUrlQuery>

#include <utility>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

KumoSession::KumoSession(KumoEmulator& device, EmulatorConnection& connection)
    : m_device(device), m_connection(connection)
{
    connect(&connection, &EmulatorConnection::allSent, this, &KumoSession::endRequests);
    connect(&connection, &EmulatorConnection::closed, this, &KumoSession::endRequests);
}

void KumoSession::received(const QByteArray& bytes)
{
    const auto requests = m_reader.feed(bytes);
    for (const auto& request : requests)
        handle(request);
}

void KumoSession::handle(const HttpRequest& request)
{
    m_device.record(request.method + ' ' + request.target);
    m_device.beginRequest();
    ++m_openRequests;
    const auto [status, contentType, body] = answer(request);
    const bool keepAlive = request.keepAlive && !m_device.quirks().closeEachConnection;
    m_connection.send("HTTP/1.1 " + status + "\r\nContent-Type: " + contentType
        + "\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\nConnection: " + (keepAlive ? "keep-alive" : "close") + "\r\n\r\n" + body);
    if (!keepAlive)
        m_connection.finish();
}

KumoSession::Answer KumoSession::answer(const HttpRequest& request)
{
    auto& quirks = m_device.quirks();
    const auto url = QUrl::fromEncoded(request.target);
    if (quirks.loginRequired || url.path() != "/config"_L1)
        return page("404 Not Found");
    if (quirks.failNext > 0) {
        --quirks.failNext;
        return page("500 Internal Server Error");
    }
    const QUrlQuery query(url);
    const auto text = [&](const QString& name) { return query.queryItemValue(name, QUrl::FullyDecoded); };
    const auto id = text(u"paramid"_s);
    const auto parameter = readKumoParameter(id, m_device.matrix());
    if (!parameter)
        return page("404 Not Found");
    if (text(u"action"_s) == "get"_L1)
        return value(id, *parameter);
    if (text(u"action"_s) == "set"_L1)
        return set(id, *parameter, text(u"value"_s));
    return page("400 Bad Request");
}

KumoSession::Answer KumoSession::set(const QString& id, const KumoParameter& parameter, const QString& text)
{
    auto& matrix = m_device.matrix();
    const bool isLocked =
        parameter.kind == KumoParameter::Kind::Route && matrix.lockOwner(parameter.index).has_value();
    if (m_device.faults().takeRefusal() || isLocked)
        return page("403 Forbidden");
    if (!m_device.faults().acknowledgeOnly && !setKumoValue(parameter, text, matrix))
        return page("400 Bad Request");
    return value(id, parameter);
}

KumoSession::Answer KumoSession::value(const QString& id, const KumoParameter& parameter) const
{
    const auto& quirks = m_device.quirks();
    if (const auto claim = quirks.claims.constFind(id); claim != quirks.claims.cend())
        return {"200 OK", "application/json", "{\"value\":" + *claim + '}'};
    const auto text = kumoValue(parameter, m_device.matrix());
    const auto asNumber = quirks.numericValues && parameter.isNumber();
    const QJsonObject object{
        {u"name"_s, id},
        {u"value"_s, asNumber ? QJsonValue(text.toInt()) : QJsonValue(text)},
        {u"value_name"_s, QString()},
    };
    auto body = QJsonDocument(object).toJson(QJsonDocument::Compact);
    if (quirks.brokenJson)
        body.chop(1);
    return {"200 OK", quirks.htmlContentType ? "text/html" : "application/json", body};
}

KumoSession::Answer KumoSession::page(const QByteArray& status) const
{
    return {status, "text/html",
        "<html><head><title>" + status + "</title></head><body><h1>" + status + "</h1></body></html>"};
}

void KumoSession::endRequests()
{
    m_device.endRequests(std::exchange(m_openRequests, 0));
}

} // namespace corvane::emulator
