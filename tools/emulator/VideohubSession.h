#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/VideohubBlockReader.h"
#include "emulator/VideohubWriter.h"

namespace corvane::emulator {

class VideohubEmulator;

/// One client's conversation with an emulated Videohub.
class VideohubSession : public EmulatorSession {
    Q_OBJECT

public:
    VideohubSession(VideohubEmulator& hub, EmulatorConnection& connection);

    void greet() override;
    void received(const QByteArray& bytes) override;

private:
    void handle(const VideohubBlock& block);
    void answer(const QByteArray& question);
    void tellLabels(const QList<LabelChange>& labels);

    VideohubEmulator& m_hub;
    EmulatorConnection& m_connection;
    VideohubBlockReader m_reader;
    VideohubWriter m_writer;
};

} // namespace corvane::emulator
