#pragma once

#include "Drivers/InterrogatedMatrix.h"
#include "Drivers/ProtocolParser.h"

#include <QByteArray>

#include <functional>
#include <utility>

namespace corvane {

/// The conversation with a router that has to be asked for each of its crosspoints: all questions at once
/// when the link is up, and one again whenever the picture of a destination may be wrong.
///
/// What one delivery causes goes out together: its answers in one piece, its events in one batch.
///
/// A protocol adds how it reads, asks and commands. Used and destroyed on its queue only.
class InterrogatingParser : public ProtocolParser {
public:
    /// `send` takes bytes to the wire. Set before the link is up; until then nothing goes out.
    void onSend(std::function<void(const QByteArray&)> send) { m_send = std::move(send); }

    void begin() override;
    void ingest(std::string_view bytes) override;

    /// The bytes that make this route. The answer is waited for from now on, so they must be sent.
    [[nodiscard]] virtual QByteArray commandFor(const Route& route) = 0;

    /// The command for this destination could not be sent: asks what the destination shows.
    virtual void commandNotSent(qint64 destination) { reinterrogate(destination); }

    void reinterrogate(qint64 destination);

protected:
    InterrogatingParser(const RouterConnection& connection, InterrogatedProtocol protocol, SerialQueue& queue,
        RouterEventStream events);

    /// Reads a delivery, or what it makes of the protocol.
    virtual void read(std::string_view bytes) = 0;

    /// Says the question for one destination.
    virtual void interrogate(qint64 destination) = 0;

    /// Goes out when all that is at hand has been read.
    void say(QByteArrayView bytes) { m_outgoing.append(bytes); }

    [[nodiscard]] InterrogatedMatrix& matrix() { return m_matrix; }

private:
    void flush();

    InterrogatedMatrix m_matrix;
    std::function<void(const QByteArray&)> m_send;
    QByteArray m_outgoing;
};

} // namespace corvane
