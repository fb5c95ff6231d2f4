#include "Foundation/ProfileLock.h"

#include "Foundation/Text.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QThread>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// The process that listens at the other end; the kernel tells, even if that process hangs.
std::optional<qint64> peerProcess(const QLocalSocket& socket)
{
    ucred peer{};
    socklen_t size = sizeof peer;
    const auto descriptor = static_cast<int>(socket.socketDescriptor());
    if (::getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.pid > 0)
        return peer.pid;
    return std::nullopt;
}

} // namespace

ProfileLock::ProfileLock(const QString& folder)
{
    QDir().mkpath(folder);
    // One folder, one name, whatever way led to it.
    m_folder = QDir(folder).canonicalPath();
    connect(&m_server, &QLocalServer::newConnection, this, &ProfileLock::answerVisitors);
}

ProfileLock::~ProfileLock()
{
    stopListening();
    closeFolder();
}

ProfileLock::Claim ProfileLock::claim(std::chrono::milliseconds patience)
{
    Q_ASSERT(thread() == QThread::currentThread());
    // Before there is an event loop or a window. The system's lock can be asked for, but wakes nobody when it
    // comes free.
    constexpr std::chrono::milliseconds pause(20);
    OwnerSilent silent;
    for (const QDeadlineTimer end(patience); true; QThread::msleep(pause.count())) {
        if (lockFolder()) {
            listen();
            return Owned{};
        }
        const std::chrono::milliseconds left(end.remainingTime());
        if (callOwner(left, silent.processID) == Answer::given)
            return OwnerAnswered{};
        if (end.hasExpired())
            return silent;
    }
}

void ProfileLock::stopListening()
{
    m_server.close();
}

void ProfileLock::closeFolder()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

bool ProfileLock::lockFolder()
{
    closeFolder();
    m_descriptor = ::open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return m_descriptor < 0 || ::flock(m_descriptor, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// The system takes a connection for a process that hangs: only bytes show that it works. One that ends
/// meanwhile closes the connection and cuts the wait short.
ProfileLock::Answer ProfileLock::callOwner(
    std::chrono::milliseconds patience, std::optional<qint64>& ownerID) const
{
    const QDeadlineTimer end(patience);
    QLocalSocket socket;
    socket.connectToServer(meetingPoint());
    if (!socket.waitForConnected(static_cast<int>(end.remainingTime())))
        return Answer::none;
    ownerID = peerProcess(socket);
    socket.waitForReadyRead(static_cast<int>(end.remainingTime()));
    return socket.bytesAvailable() > 0 ? Answer::given : Answer::none;
}

/// In the folder itself. The path of a socket is limited to about a hundred bytes: by way of the open folder
/// it is short, wherever the folder lies.
QString ProfileLock::meetingPoint() const
{
    const auto shortWay = u"/proc/self/fd/%1"_s.arg(m_descriptor);
    return (QFile::exists(shortWay) ? shortWay : m_folder) + u"/.running"_s;
}

void ProfileLock::listen()
{
    if (m_descriptor < 0) {
        text::printLine(u"The folder of what is saved can't be opened; another copy would not be noticed."_s);
        return;
    }
    // Whoever listened here before is gone, since the folder is ours.
    QLocalServer::removeServer(meetingPoint());
    m_server.listen(meetingPoint());
}

void ProfileLock::answerVisitors()
{
    emit cameAnother();
    while (auto* const visitor = m_server.nextPendingConnection()) {
        visitor->write("\n");
        visitor->flush();
        visitor->deleteLater();
    }
}

} // namespace corvane
