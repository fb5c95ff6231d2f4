#include "Foundation/ProfileLock.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QStandardPaths>

#include <cerrno>
#include <chrono>

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
    m_server.close();
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

ProfileLock::Role ProfileLock::claim()
{
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
