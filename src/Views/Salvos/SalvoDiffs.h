#pragma once

#include "Controllers/MatrixController.h"
#include "Foundation/QuietTimer.h"

#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace corvane {

/// What firing each salvo would do now.
///
/// A diff is worked out when it is asked for, and kept until something that it depends on has changed. Those
/// that are watched are then worked out again, at most once a frame however many tallies arrive; the others
/// are forgotten. The controller may be replaced, and may go at any time. Main thread.
class SalvoDiffs : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a screen's model")

public:
    /// Between two times that diffs follow the router's traffic.
    static constexpr auto frame = std::chrono::milliseconds(16);

    /// `mainQueue` must outlive it.
    explicit SalvoDiffs(SerialQueue& mainQueue);

    [[nodiscard]] MatrixController* controller() const { return m_controller; }
    void setController(MatrixController* controller);

    /// As it was known at most a frame ago. Empty without a controller.
    [[nodiscard]] const SalvoDiff& of(const Salvo& salvo);

    /// As often as it is watched it has to be unwatched.
    void watch(const QUuid& salvo);
    void unwatch(const QUuid& salvo);
    [[nodiscard]] bool isWatched(const QUuid& salvo) const { return m_watched.contains(salvo); }

signals:
    /// What is said of this watched salvo may be different.
    void changed(const QUuid& salvo);

private:
    struct Known {
        Salvo salvo;
        SalvoDiff diff;
    };

    void noteTally(qint64 destination);
    void followTraffic();
    void forgetAll();

    QPointer<MatrixController> m_controller;
    QHash<QUuid, Known> m_known;
    QHash<QUuid, int> m_watched;
    /// The destinations whose source or lock changed since diffs last followed.
    QSet<qint64> m_touched;
    QuietTimer m_turn;
};

/// Watches a salvo for as long as it lives: an item on screen that shows a salvo has one.
class SalvoWatcher : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(corvane::SalvoDiffs* diffs READ diffs WRITE setDiffs NOTIFY changed FINAL)
    /// Its id.
    Q_PROPERTY(QString salvo READ salvo WRITE setSalvo NOTIFY changed FINAL)
    Q_PROPERTY(bool isWatching READ isWatching WRITE setWatching NOTIFY changed FINAL)

public:
    using QObject::QObject;
    ~SalvoWatcher() override;

    [[nodiscard]] SalvoDiffs* diffs() const { return m_diffs; }
    void setDiffs(SalvoDiffs* diffs);
    [[nodiscard]] QString salvo() const { return m_salvo.toString(); }
    void setSalvo(const QString& salvo);
    [[nodiscard]] bool isWatching() const { return m_isWatching; }
    void setWatching(bool isWatching);

signals:
    void changed();

private:
    void begin();
    void end();

    QPointer<SalvoDiffs> m_diffs;
    QUuid m_salvo;
    bool m_isWatching = true;
};

} // namespace corvane
