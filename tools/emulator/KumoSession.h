#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/HttpRequestReader.h"
#include "emulator/KumoParameter.h"

namespace corvane::emulator {

class KumoEmulator;

/// One HTTP connection to an emulated KUMO.
class KumoSession : public EmulatorSession {
    Q_OBJECT

public:
    KumoSession(KumoEmulator& device, EmulatorConnection& connection);

    void received(const QByteArray& bytes) override;

private:
    struct Answer {
        QByteArray status;
        QByteArray contentType;
        QByteArray body;
    };

    void handle(const HttpRequest& request);
    Answer answer(const HttpRequest& request);
    Answer set(const QString& id, const KumoParameter& parameter, const QString& text);
    Answer value(const QString& id, const KumoParameter& parameter) const;
    Answer page(const QByteArray& status) const;
    void endRequests();

    KumoEmulator& m_device;
    EmulatorConnection& m_connection;
    HttpRequestReader m_reader;
    int m_openRequests = 0;
};

} // namespace corvane::emulator
