#pragma once

#include <QLocalServer>
#include <QObject>

namespace corvane {

/// Keeps two copies of the program from writing into the same folder: the first one owns it, a later one can
/// only ask the owner to come to the front. Copies on different folders know nothing of one another.
///
/// The lock is the system's own on the folder itself: it ends with its process, however that ends, and leaves
/// no file behind. Where a folder can't be locked at all, everyone owns it, for a lock must never keep the
/// operator out. Main thread only.
class ProfileLock : public QObject {
    Q_OBJECT

public:
    enum class Role { owner, latecomer };

    /// The folder is made if it isn't there.
    explicit ProfileLock(const QString& folder);
    ~ProfileLock() override;

    /// The owner stays owner for the life of this object. Call once.
    Role claim();

    /// For a latecomer. False when the owner doesn't listen, which is so only while it starts or ends.
    [[nodiscard]] bool askOwnerToComeForward() const;

signals:
    /// To the owner: another copy was started.
    void cameAnother();

private:
    [[nodiscard]] QString meetingPoint() const;
    void listen();

    QString m_folder;
    int m_descriptor = -1;
    QLocalServer m_server;
};

} // namespace corvane
