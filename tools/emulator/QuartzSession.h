#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/LineReader.h"
#include "emulator/QuartzCommand.h"

namespace corvane::emulator {

class QuartzEmulator;

/// One client's conversation with an emulated Quartz router.
class QuartzSession : public EmulatorSession {
    Q_OBJECT

public:
    QuartzSession(QuartzEmulator& router, EmulatorConnection& connection);

    void received(const QByteArray& bytes) override;

private:
    void handle(const QByteArray& line);
    /// What can't be read, or names ports that aren't there.
    void refuse(const std::optional<QuartzCommand>& command);
    void answer(const QuartzCommand& question);
    void take(const QuartzCommand& command);
    bool isAlready(const QuartzCommand& command) const;
    void tellRoutes(const QList<Crosspoint>& routes);
    /// The crosspoint of one destination as an update or an answer, for levels that show the same.
    void report(char verb, const QByteArray& letters, const Crosspoint& route);
    /// What another destination shows, as if somebody had just taken it.
    void interpose(int destination);
    void say(const QByteArray& line);
    QByteArray number(int port) const;

    QuartzEmulator& m_router;
    EmulatorConnection& m_connection;
    LineReader m_reader;
};

} // namespace corvane::emulator
