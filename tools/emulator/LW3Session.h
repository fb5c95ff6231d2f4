#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/LW3Request.h"
#include "emulator/LW3Tree.h"
#include "emulator/LineReader.h"

#include <QByteArrayList>
#include <QSet>

namespace corvane::emulator {

class LW3Emulator;

/// One client's conversation with an emulated LW3 device.
class LW3Session : public EmulatorSession {
    Q_OBJECT

public:
    LW3Session(LW3Emulator& device, EmulatorConnection& connection);

    void received(const QByteArray& bytes) override;

private:
    void handle(const QByteArray& line);
    QByteArrayList answer(const LW3Request& request);
    QByteArrayList get(const QByteArray& path) const;
    QByteArrayList getAll(const QByteArray& node, const QList<LW3Property>& properties) const;
    QByteArray open(const QByteArray& node);
    QByteArray close(const QByteArray& node);
    QByteArray set(const QByteArray& assignment);
    QByteArray call(const QByteArray& text);
    /// Whether it could be done.
    bool carryOut(const LW3Call& call);
    bool switchRoutes(const QList<QByteArray>& connections);
    bool setLocks(const QList<QByteArray>& outputs, const std::optional<ClientId>& owner);

    QByteArray error(const QByteArray& prefix, const QByteArray& subject, const QByteArray& text) const;

    void tell(const QByteArray& node, const QByteArray& name);
    void tellLabels(const QList<LabelChange>& labels);
    void tellEverything();
    void say(const QByteArrayList& lines);

    LW3Emulator& m_device;
    EmulatorConnection& m_connection;
    LineReader m_reader;
    QSet<QByteArray> m_opened;
    /// Changes that wait for the end of the answer to the command that made them.
    QByteArrayList m_changes;
    bool m_answering = false;
};

} // namespace corvane::emulator
