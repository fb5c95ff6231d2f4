#pragma once

#include <QLocalServer>
#include <QObject>

#include <chrono>
#include <optional>
#include <variant>

namespace corvane {

/// Keeps two copies of the program from writing into the same folder: the first one owns it, a later one can
/// only ask the owner to come to the front. Copies on different folders do not affect one another.
///
/// The lock is the system's own on the folder itself: it ends with its process, however that ends. The owner
/// listens on a socket in the folder, so that whoever finds the folder finds the owner. Where a folder can't
/// be locked at all, everyone owns it, for a lock must never keep the operator out. Confined to the thread
/// that made it.
class ProfileLock : public QObject {
    Q_OBJECT

public:
    /// The folder is ours for the life of this object.
    struct Owned {
        bool operator==(const Owned&) const = default;
    };
    /// Another copy owns it, and has answered.
    struct OwnerAnswered {
        bool operator==(const OwnerAnswered&) const = default;
    };
    /// Another copy owns it and does not answer.
    struct OwnerSilent {
        /// Absent if it could not be found out.
        std::optional<qint64> processID;
        bool operator==(const OwnerSilent&) const = default;
    };
    using Claim = std::variant<Owned, OwnerAnswered, OwnerSilent>;

    /// The folder is made if it isn't there.
    explicit ProfileLock(const QString& folder);
    ~ProfileLock() override;

    /// Claims the folder, or asks its owner to come forward. An owner that does not answer is given
    /// `patience` to do so, or to end. Blocks meanwhile, so call it before there is a window. May be repeated
    /// by a copy that does not own the folder.
    Claim claim(std::chrono::milliseconds patience);

    /// For an owner that is about to end: a copy that starts now waits for the folder instead of calling an
    /// owner that is gone a moment later.
    void stopListening();

signals:
    /// To the owner: another copy was started. It is answered once this has been handled.
    void cameAnother();

private:
    enum class Answer { given, none };

    [[nodiscard]] bool lockFolder();
    Answer callOwner(std::chrono::milliseconds patience, std::optional<qint64>& ownerID) const;
    [[nodiscard]] QString meetingPoint() const;
    void listen();
    void answerVisitors();
    void closeFolder();

    QString m_folder;
    int m_descriptor = -1;
    QLocalServer m_server;
};

} // namespace corvane
