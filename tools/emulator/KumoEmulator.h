#pragma once

#include "emulator/EmulatorServer.h"

#include <QHash>

#include <algorithm>

namespace corvane::emulator {

/// How devices and their settings differ. Each is off on a device fresh from its box.
struct KumoQuirks {
    /// Numbers are JSON numbers instead of texts.
    bool numericValues = false;
    /// JSON is declared to be "text/html".
    bool htmlContentType = false;
    /// A page of HTML with status 404 is all that anybody gets without a login.
    bool loginRequired = false;
    /// JSON lacks its last brace.
    bool brokenJson = false;
    /// What parameters claim to be, as JSON, whatever they are.
    // NOLINTNEXTLINE(readability-redundant-member-init): GCC warns of whoever leaves it out.
    QHash<QString, QByteArray> claims{};
    /// How many of the coming requests fail inside the device, with status 500.
    int failNext = 0;
    /// The connection is closed behind every answer.
    bool closeEachConnection = false;
};

/// An AJA KUMO on loopback: shows level 0 of its matrix as parameters that are read and set by HTTP. What is
/// locked, by anybody, is not routed. A KUMO that keeps its old routes is one with the fault
/// `acknowledgeOnly`.
class KumoEmulator : public EmulatorServer {
    Q_OBJECT

public:
    /// Listens at once; see `isListening()`. Port 0 is any free one. The matrix must outlive the emulator.
    explicit KumoEmulator(EmulatedMatrix& matrix, quint16 port = 0, QObject* parent = nullptr);

    /// May be changed at any moment and hold for what is answered from then on.
    KumoQuirks& quirks() { return m_quirks; }

    /// How many requests have been waiting for their answers at the same time, at most, on all connections
    /// together.
    int mostRequestsAtOnce() const { return m_mostOpenRequests; }

    void beginRequest() { m_mostOpenRequests = std::max(m_mostOpenRequests, ++m_openRequests); }
    void endRequests(int count) { m_openRequests -= count; }

protected:
    std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) override;
    QByteArray halfMessage() const override;

private:
    KumoQuirks m_quirks;
    int m_openRequests = 0;
    int m_mostOpenRequests = 0;
};

} // namespace corvane::emulator
