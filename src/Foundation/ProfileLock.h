#pragma once

#include <QLocalServer>
#include <QObject>

#include <chrono>
#include <optional>

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

    /// The owner stays owner for the life of this object. A latecomer may try again.
    Role claim();

    /// For a latecomer. False when the owner doesn't listen, which is so only while it starts or ends.
    [[nodiscard]] bool askOwnerToComeForward() const;

    /// Claims the folder, or asks its owner to come forward. One that doesn't listen is given this long to
    /// end, and then the folder is ours, or to begin; absent if it did neither. Waits on the spot, so call it
    /// before there is a window.
    std::optional<Role> claimOrCallOwner(std::chrono::milliseconds patience);

    /// For an owner that is about to end: whoever comes now waits for the folder instead of calling somebody
    /// who is gone a moment later.
    void stopListening();

signals:
    /// To the owner: another copy was started.
    void cameAnother();

private:
    [[nodiscard]] QString meetingPoint() const;
    void listen();
    void release();

    QString m_folder;
    int m_descriptor = -1;
    QLocalServer m_server;
};

} // namespace corvane
