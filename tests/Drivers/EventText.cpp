#include "Drivers/EventText.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace corvane {

namespace {

std::string portTexts(const QList<Port>& ports, PortKind kind)
{
    std::string text = "[";
    for (qsizetype place = 0; place < ports.size(); ++place) {
        const auto& port = ports[place];
        text += (text.size() > 1 ? "|" : "") + port.label.toStdString();
        if (port.index != place || port.kind != kind)
            text += " (" + rawValue(port.kind).toStdString() + " " + std::to_string(port.index) + ")";
    }
    return text + "]";
}

std::string oddLevelTexts(const RouterState& state)
{
    std::string text;
    const QList<RouterLevel> usual{{0, u"Video"_s, LevelKind::video}};
    for (const auto& level : state.levels) {
        if (state.levels != usual)
            text += " level " + std::to_string(level.index) + " " + level.name.toStdString();
    }
    if (state.levels.isEmpty() || state.routing.keys() != QList<qint64>{0})
        text += " routing of " + std::to_string(state.routing.size()) + " levels";
    return text;
}

std::string routingText(const LevelRouting& routing)
{
    std::string text;
    const std::map<qint64, qint64> sorted(routing.constKeyValueBegin(), routing.constKeyValueEnd());
    for (const auto& [destination, source] : sorted)
        text += " " + std::to_string(destination) + "=" + std::to_string(source);
    return text;
}

std::string signalText(const InputSignalStatus& status)
{
    return (status.present ? " present " : " absent ") + status.format.value_or(QString()).toStdString();
}

std::string stateText(const RouterState& state)
{
    auto text = rawValue(state.vendor).toStdString() + " \"" + state.deviceName.toStdString() + "\" \""
        + state.model.toStdString() + "\" " + portTexts(state.sources, PortKind::source) + " "
        + portTexts(state.destinations, PortKind::destination) + " routes"
        + routingText(state.routing.value(0)) + oddLevelTexts(state);
    auto locked = state.lockedDestinations.values();
    std::ranges::sort(locked);
    for (const auto destination : locked)
        text += " locked " + std::to_string(destination);
    const std::map<qint64, InputSignalStatus> signalsByInput(
        state.inputStatus.constKeyValueBegin(), state.inputStatus.constKeyValueEnd());
    for (const auto& [input, status] : signalsByInput)
        text += " input " + std::to_string(input) + signalText(status);
    return text;
}

struct Writer {
    std::ostream& out;

    void operator()(const driverEvent::Status& event) const { out << "status " << event.text.toStdString(); }
    void operator()(const driverEvent::Connected& event) const
    {
        out << "connected " << stateText(event.state);
    }
    void operator()(const driverEvent::StateReplaced& event) const
    {
        out << "replaced " << stateText(event.state);
    }
    void operator()(const driverEvent::RouteChanged& event) const
    {
        out << "route " << event.level << ':' << event.destination << '='
            << (event.source ? std::to_string(*event.source) : "none");
    }
    void operator()(const driverEvent::LabelChanged& event) const
    {
        out << "label " << rawValue(event.kind).toStdString() << ' ' << event.index << ' '
            << event.label.toStdString();
    }
    void operator()(const driverEvent::LockChanged& event) const
    {
        out << (event.locked ? "lock " : "unlock ") << event.destination;
    }
    void operator()(const driverEvent::InputStatusChanged& event) const
    {
        out << "input " << event.input;
        if (event.status)
            out << signalText(*event.status);
    }
    void operator()(const driverEvent::Disconnected& event) const
    {
        out << "disconnected";
        if (event.reason)
            out << ' ' << event.reason->toStdString();
    }
    void operator()(const driverEvent::Error& event) const { out << "error " << event.message.toStdString(); }
    void operator()(const driverEvent::CommandRefused& event) const
    {
        out << "refused " << event.message.toStdString();
    }
};

} // namespace

std::string eventText(const RouterDriverEvent& event)
{
    std::ostringstream out;
    std::visit(Writer{out}, event);
    return out.str();
}

EventLog::EventLog(const RouterEventStream& events, SerialQueue& queue)
{
    events.consume(queue, m_stop.get_token(),
        [this](RouterDriverEvent&& event) { m_texts.push_back(eventText(event)); });
}

std::vector<std::string> EventLog::takeNew()
{
    const auto begin = m_texts.begin() + static_cast<std::ptrdiff_t>(m_taken);
    m_taken = m_texts.size();
    return {begin, m_texts.end()};
}

bool EventLog::contains(const std::string& text) const
{
    return std::ranges::find(m_texts, text) != m_texts.end();
}

} // namespace corvane
