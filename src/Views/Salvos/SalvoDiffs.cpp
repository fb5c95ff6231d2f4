#include "Views/Salvos/SalvoDiffs.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

bool touches(const QSet<qint64>& destinations, const Salvo& salvo)
{
    return std::ranges::any_of(
        salvo.routes, [&](const Route& route) { return destinations.contains(route.destination); });
}

} // namespace

SalvoDiffs::SalvoDiffs(SerialQueue& mainQueue)
    : m_turn(
        mainQueue, frame, [this] { followTraffic(); }, frame)
{
}

void SalvoDiffs::setController(MatrixController* newController)
{
    if (newController == m_controller)
        return;
    if (m_controller)
        QObject::disconnect(m_controller, nullptr, this, nullptr);
    m_controller = newController;
    if (newController) {
        connect(newController, &MatrixController::crosspointChanged, this,
            [this](qint64, qint64 destination) { noteTally(destination); });
        connect(newController, &MatrixController::lockChanged, this, &SalvoDiffs::noteTally);
        connect(newController, &MatrixController::stateReplaced, this, &SalvoDiffs::forgetAll);
        connect(newController, &MatrixController::labelsChanged, this, &SalvoDiffs::forgetAll);
    }
    forgetAll();
}

const SalvoDiff& SalvoDiffs::of(const Salvo& salvo)
{
    static const SalvoDiff nothing;
    if (!m_controller)
        return nothing;
    auto known = m_known.find(salvo.id);
    if (known == m_known.end() || known->salvo.routes != salvo.routes)
        known = m_known.insert(salvo.id, {salvo, m_controller->diff(salvo)});
    return known->diff;
}

void SalvoDiffs::watch(const QUuid& salvo)
{
    ++m_watched[salvo];
}

void SalvoDiffs::unwatch(const QUuid& salvo)
{
    const auto watched = m_watched.find(salvo);
    if (watched != m_watched.end() && --*watched == 0)
        m_watched.erase(watched);
}

void SalvoDiffs::noteTally(qint64 destination)
{
    if (m_known.isEmpty())
        return;
    m_touched.insert(destination);
    m_turn.restart();
}

void SalvoDiffs::followTraffic()
{
    const auto touched = std::exchange(m_touched, {});
    QList<QUuid> changes;
    for (auto known = m_known.begin(); known != m_known.end();) {
        if (!touches(touched, known->salvo)) {
            ++known;
        } else if (m_controller && m_watched.contains(known.key())) {
            known->diff = m_controller->diff(known->salvo);
            changes.append(known.key());
            ++known;
        } else {
            known = m_known.erase(known);
        }
    }
    for (const auto& salvo : std::as_const(changes))
        emit changed(salvo);
}

void SalvoDiffs::forgetAll()
{
    m_turn.cancel();
    m_touched.clear();
    m_known.clear();
    const auto watched = m_watched.keys();
    for (const auto& salvo : watched)
        emit changed(salvo);
}

SalvoWatcher::~SalvoWatcher()
{
    end();
}

void SalvoWatcher::begin()
{
    if (m_diffs && m_isWatching)
        m_diffs->watch(m_salvo);
}

void SalvoWatcher::end()
{
    if (m_diffs && m_isWatching)
        m_diffs->unwatch(m_salvo);
}

void SalvoWatcher::setDiffs(SalvoDiffs* diffs)
{
    end();
    m_diffs = diffs;
    begin();
    emit changed();
}

void SalvoWatcher::setSalvo(const QString& salvo)
{
    end();
    m_salvo = QUuid(salvo);
    begin();
    emit changed();
}

void SalvoWatcher::setWatching(bool isWatching)
{
    end();
    m_isWatching = isWatching;
    begin();
    emit changed();
}

} // namespace corvane
