#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/SWP08Frame.h"
#include "emulator/SWP08Request.h"
#include "emulator/SWP08Writer.h"

#include <deque>

namespace corvane::emulator {

class SWP08Emulator;

/// One client's conversation with an emulated SW-P-08 router.
class SWP08Session : public EmulatorSession {
    Q_OBJECT

public:
    SWP08Session(SWP08Emulator& router, EmulatorConnection& connection);

    void received(const QByteArray& bytes) override;

private:
    /// A message the client has neither acknowledged nor refused yet.
    struct Sent {
        QByteArray payload;
        int repeats = 0;
    };

    void handle(const SWP08Item& item);
    void handleMessage(const QByteArray& payload);
    void ask(const SWP08Request& question);
    void connectRoute(const SWP08Request& take);
    void carryOut(const Crosspoint& route);
    void dump(const QByteArray& payload);
    void answerQuestions();
    void answerWith(const QByteArray& acknowledgements, const QByteArrayList& payloads);
    void tellRoutes(const QList<Crosspoint>& routes);
    void tellEverything();
    void repeatRefused();

    /// Whether this router has the level and the destination, and takes them in this form.
    bool isForUs(const SWP08Request& request) const;
    /// The message as it goes out, noted as sent.
    QByteArray wire(const QByteArray& payload, int repeats = 0);

    SWP08Emulator& m_router;
    EmulatorConnection& m_connection;
    SWP08FrameReader m_reader;
    SWP08Writer m_writer;
    QList<SWP08Place> m_questions;
    std::deque<Sent> m_unanswered;
};

} // namespace corvane::emulator
