#include "Foundation/ProfileLock.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace corvane {

ProfileLock::ProfileLock(const QString& folder)
{
    QDir().mkpath(folder);
    // One folder, one name, whatever way led to it.
    m_folder = QDir(folder).canonicalPath();
}

ProfileLock::~ProfileLock()
{
    stopListening();
    release();
}

std::optional<ProfileLock::Role> ProfileLock::claimOrCallOwner(std::chrono::milliseconds patience)
{
    constexpr std::chrono::milliseconds pause(20);
    for (const QDeadlineTimer end(patience); true; QThread::msleep(pause.count())) {
        if (claim() == Role::owner)
            return Role::owner;
        if (askOwnerToComeForward())
            return Role::latecomer;
        if (end.hasExpired())
            return std::nullopt;
    }
}

void ProfileLock::stopListening()
{
    m_server.close();
}

void ProfileLock::release()
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
}

ProfileLock::Role ProfileLock::claim()
{
    release();
    m_descriptor = ::open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (m_descriptor < 0)
        return Role::owner;
    if (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Role::latecomer : Role::owner;
    listen();
    return Role::owner;
}

bool ProfileLock::askOwnerToComeForward() const
{
    constexpr std::chrono::milliseconds patience(1000);
    QLocalSocket socket;
    socket.connectToServer(meetingPoint());
    return socket.waitForConnected(static_cast<int>(patience.count()));
}

/// A short name in a folder that is this user's own: the path of a socket is limited to about a hundred
/// bytes.
QString ProfileLock::meetingPoint() const
{
    const auto hash =
        QCryptographicHash::hash(m_folder.toUtf8(), QCryptographicHash::Sha256).toHex().first(16);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)
        + QStringLiteral("/corvane-%1").arg(QString::fromLatin1(hash));
}

void ProfileLock::listen()
{
    // The connection alone is the message.
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (auto* const visitor = m_server.nextPendingConnection())
            visitor->deleteLater();
        emit cameAnother();
    });
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    // Whoever listened here before is gone, since the folder is ours.
    QLocalServer::removeServer(meetingPoint());
    m_server.listen(meetingPoint());
}

} // namespace corvane
