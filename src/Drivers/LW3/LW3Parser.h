#pragma once

#include "Drivers/Tcp/DelimitedReader.h"
#include "Drivers/Tcp/Ports.h"
#include "Drivers/Tcp/ProtocolParser.h"

#include <QByteArray>

#include <optional>
#include <string_view>
#include <vector>

namespace corvane {

/// What has been read of the matrix since it was asked for again.
struct LW3Resync {
    bool hasRoutes = false;
    bool hasLocks = false;
};

/// Reads the Lightware LW3 text protocol: a tree of properties, told line by line.
///
/// Asks for names and crosspoints once the link is up, and subscribes when the list of names has ended. What
/// comes is gathered in silence until the device falls quiet, and goes out as one `Connected`; from then on
/// there is an event for each real change. Answers to signed commands stand between braces, which is how a
/// refusal is told from everything else; it is followed by reading the matrix again, and everything that this
/// brings is reported, changed or not, for the controller may believe otherwise.
///
/// Ports are one-based on the wire. A matrix is as large as the highest number, up to `maximumPortCount`,
/// that is named before `Connected`. What is told of ports beyond is passed over; a list that goes on beyond
/// them tells of ports that are neither routed nor locked.
///
/// Used and destroyed on its queue only.
class LW3Parser final : public ProtocolParser {
public:
    /// What a signed command was meant to do.
    enum class Command { route, lock, rename };

    /// How the end of the list of names is known.
    static constexpr Duration namesQuiet = std::chrono::milliseconds(300);
    /// How the end of the device's state is known.
    static constexpr Duration stateQuiet = std::chrono::milliseconds(600);

    /// What a line that is sent ends in.
    static constexpr auto* lineEnd = "\r\n";

    LW3Parser(QString deviceName, SerialQueue& queue, RouterEventStream events);

    /// Signs a command: returns the four characters, not in use by a recent one, that its answer will carry.
    [[nodiscard]] QByteArray registerCommand(Command command);

    /// What the device puts before a port's name, to be handed back with a new one; "1" if it never did.
    [[nodiscard]] QByteArray namePrefix(PortKind kind, qint64 index) const;

    /// Reads the matrix again and reports all of it. Nothing before `Connected`.
    void resyncFromSendFailure();

protected:
    void greet() override;
    void read(std::string_view bytes) override;

private:
    /// What the device calls the ports of one side.
    struct Names {
        /// The highest number named.
        qint64 count = 0;
        PortTable<QString> labels;
        PortTable<QByteArray> prefixes;
    };

    void handle(std::string_view line);
    void handleError(std::string_view line);
    void endBlock();

    void handleProperty(std::string_view property);
    void dispatch(std::string_view path, std::string_view value);
    void handleName(std::string_view key, std::string_view value);
    void learnName(PortKind kind, qint64 index, std::string_view value);
    void handleRoutingList(std::string_view list);
    void handleRoute(qint64 destination, std::optional<qint64> source);
    void handleLockList(std::string_view list);
    void handleLock(qint64 destination, bool isLocked);
    void handleInputStatus(std::string_view port, std::string_view value);

    void scheduleStatusQueries();
    void issueStatusQueries();
    void scheduleFinalizeIfReady();
    void finalize();
    void forgetPortsBeyond();
    [[nodiscard]] RouterState completeState() const;
    void startResync();
    void endResyncIfComplete();

    [[nodiscard]] bool hasNames() const { return m_inputs.count > 0 && m_outputs.count > 0; }
    [[nodiscard]] Names& names(PortKind kind) { return kind == PortKind::source ? m_inputs : m_outputs; }
    [[nodiscard]] const Names& names(PortKind kind) const
    {
        return kind == PortKind::source ? m_inputs : m_outputs;
    }
    /// How many ports of a kind there can be; after `Connected`, how many there are.
    [[nodiscard]] qint64 mostPorts(PortKind kind) const;
    [[nodiscard]] std::optional<qint64> knownSource(qint64 destination) const;
    void ask(const QByteArray& line) { say(line + lineEnd); }

    const QString m_deviceName;
    DelimitedReader m_reader{"\n", CarriageReturn::dropped};

    quint16 m_signatureCounter = 0;
    /// By signature. An entry leaves when its answer has ended.
    QHash<QByteArray, Command> m_pendingCommands;
    /// The signature of the answer that is being read.
    std::optional<QByteArray> m_currentBlock;

    QString m_productName;
    Names m_inputs;
    Names m_outputs;
    /// By destination, as far up as there are routes.
    std::vector<std::optional<qint64>> m_routing;
    QSet<qint64> m_locked;
    QHash<qint64, InputSignalStatus> m_inputStatus;

    bool m_routingReceived = false;
    bool m_statusQueriesIssued = false;
    bool m_connectedEmitted = false;
    /// Present from the question until both lists have come.
    std::optional<LW3Resync> m_resync;

    QuietTimer& m_namesQuietTimer;
    QuietTimer& m_finalizeTimer;
};

} // namespace corvane
