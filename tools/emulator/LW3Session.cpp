#include "emulator/LW3Session.h"

#include "emulator/LW3Emulator.h"
#include "emulator/LW3Escape.h"

#include <utility>

namespace corvane::emulator {

namespace {

constexpr auto lineEnd = "\r\n";

constexpr auto syntaxError = "%E001:Syntax error";
constexpr auto doesNotExist = "%E002:Not exists";
constexpr auto invalidValue = "%E004:Invalid value";
constexpr auto readOnlyProperty = "%E005:Read only property";
constexpr auto denied = "%E006:Access denied";

/// "/NODE.Name" at the first dot behind the last slash.
LW3Halves splitPath(const QByteArray& path)
{
    const auto dot = path.indexOf('.', path.lastIndexOf('/') + 1);
    if (dot < 0)
        return {path, {}};
    return {path.left(dot), path.mid(dot + 1)};
}

} // namespace

LW3Session::LW3Session(LW3Emulator& device, EmulatorConnection& connection)
    : m_device(device), m_connection(connection)
{
    const auto* matrix = &device.matrix();
    connect(matrix, &EmulatedMatrix::routesChanged, this, [this] { tell(lw3::crosspoints, lw3::routeList); });
    connect(matrix, &EmulatedMatrix::locksChanged, this, [this] { tell(lw3::crosspoints, lw3::lockList); });
    connect(matrix, &EmulatedMatrix::labelsChanged, this, &LW3Session::tellLabels);
    connect(matrix, &EmulatedMatrix::replaced, this, &LW3Session::tellEverything);
    connect(&device, &LW3Emulator::resolutionChanged, this, [this](int input) {
        tell(lw3::statusNode(input), "SignalPresent");
        tell(lw3::statusNode(input), "ActiveResolution");
    });
}

void LW3Session::received(const QByteArray& bytes)
{
    const auto lines = m_reader.feed(bytes);
    for (const auto& line : lines)
        handle(line);
}

void LW3Session::handle(const QByteArray& line)
{
    m_device.record(line);
    const auto request = readLW3Request(line);
    m_answering = true;
    auto lines = answer(request);
    m_answering = false;
    if (m_device.quirks().changesInsideBlock)
        lines += std::exchange(m_changes, {});
    if (request.signature)
        lines = QByteArrayList{'{' + *request.signature} + lines + QByteArrayList{"}"};
    say(lines);
    for (const auto& change : std::exchange(m_changes, {}))
        say({change});
}

QByteArrayList LW3Session::answer(const LW3Request& request)
{
    if (request.verb == "GET")
        return get(request.argument);
    if (request.verb == "OPEN")
        return {open(request.argument)};
    if (request.verb == "CLOSE")
        return {close(request.argument)};
    if (request.verb == "SET")
        return {set(request.argument)};
    if (request.verb == "CALL")
        return {call(request.argument)};
    return {error("-E", {}, syntaxError)};
}

QByteArrayList LW3Session::get(const QByteArray& path) const
{
    const auto [node, name] = splitPath(path);
    const auto properties = m_device.tree().properties(node);
    if (!properties)
        return {error("nE", node, doesNotExist)};
    if (name == "*")
        return getAll(node, *properties);
    const auto property = m_device.tree().property(node, name);
    return {property ? property->line() : error("pE", path, doesNotExist)};
}

QByteArrayList LW3Session::getAll(const QByteArray& node, const QList<LW3Property>& properties) const
{
    QByteArrayList lines;
    for (const auto& property : properties)
        lines << property.line();
    const auto methods = m_device.tree().methods(node);
    for (const auto& method : methods)
        lines << "m- " + node + ':' + method;
    return lines;
}

QByteArray LW3Session::open(const QByteArray& node)
{
    if (!m_device.tree().has(node))
        return error("nE", node, doesNotExist);
    m_opened << node;
    return "o- " + node;
}

QByteArray LW3Session::close(const QByteArray& node)
{
    return m_opened.remove(node) ? "c- " + node : error("nE", node, doesNotExist);
}

QByteArray LW3Session::set(const QByteArray& assignment)
{
    const auto [path, escaped] = splitFirst(assignment, '=');
    const auto [node, name] = splitPath(path);
    auto property = m_device.tree().property(node, name);
    if (!property)
        return error("pE", path, doesNotExist);
    const auto port = m_device.tree().port(name);
    if (property->access == LW3Property::Access::ReadOnly || !port)
        return error("pE", path, readOnlyProperty);
    if (m_device.faults().takeRefusal())
        return error("pE", path, denied);
    const auto value = readLW3Value(escaped);
    if (!value)
        return error("pE", path, invalidValue);
    const bool hasPrefix = !m_device.quirks().plainNames && value->contains(';');
    const auto label = hasPrefix ? splitFirst(*value, ';').after : *value;
    if (!m_device.faults().acknowledgeOnly)
        m_device.matrix().setLabels({{port->side, port->index, QString::fromUtf8(label)}});
    property->value = *value;
    return property->line();
}

QByteArray LW3Session::call(const QByteArray& text)
{
    const auto [node, rest] = splitFirst(text, ':');
    const auto wanted = readLW3Call(rest);
    if (!wanted)
        return error("-E", {}, syntaxError);
    const auto subject = node + ':' + wanted->method;
    if (!m_device.tree().methods(node).contains(wanted->method))
        return error("mE", subject, doesNotExist);
    if (m_device.faults().takeRefusal())
        return error("mE", subject, denied);
    if (!carryOut(*wanted))
        return error("mE", subject, invalidValue);
    return "mO " + subject + m_device.quirks().callResult;
}

bool LW3Session::carryOut(const LW3Call& call)
{
    if (call.method == "switch")
        return switchRoutes(call.parameters);
    if (call.method == "lockDestination")
        return setLocks(call.parameters, m_connection.id());
    return setLocks(call.parameters, std::nullopt);
}

bool LW3Session::switchRoutes(const QList<QByteArray>& connections)
{
    QList<Crosspoint> routes;
    for (const auto& connection : connections) {
        const auto [from, to] = splitFirst(connection, ':');
        const auto source = m_device.tree().port(from);
        const auto destination = m_device.tree().port(to);
        const bool isSource = from == "0" || (source && source->side == Side::Source);
        if (!isSource || !destination || destination->side != Side::Destination
            || m_device.matrix().lockOwner(destination->index))
            return false;
        routes << Crosspoint{0, destination->index, source ? source->index : noSource};
    }
    return m_device.faults().acknowledgeOnly || m_device.matrix().setRoutes(routes);
}

bool LW3Session::setLocks(const QList<QByteArray>& outputs, const std::optional<ClientId>& owner)
{
    QList<LockChange> locks;
    for (const auto& output : outputs) {
        const auto destination = m_device.tree().port(output);
        if (!destination || destination->side != Side::Destination)
            return false;
        locks << LockChange{destination->index, owner};
    }
    return m_device.faults().acknowledgeOnly || m_device.matrix().setLocks(locks);
}

QByteArray LW3Session::error(
    const QByteArray& prefix, const QByteArray& subject, const QByteArray& text) const
{
    const auto& quirks = m_device.quirks();
    auto line = quirks.errorPrefix.isEmpty() ? prefix : quirks.errorPrefix;
    if (!subject.isEmpty())
        line += ' ' + subject;
    return line + ' ' + (quirks.omitErrorCodes ? splitFirst(text, ':').after : text);
}

void LW3Session::tell(const QByteArray& node, const QByteArray& name)
{
    const auto property = m_device.tree().property(node, name);
    if (!property || !m_opened.contains(node))
        return;
    const QByteArrayList changes(m_device.quirks().changeRepeats, "CHG " + property->text());
    if (m_answering)
        m_changes += changes;
    else
        say(changes);
}

void LW3Session::tellLabels(const QList<LabelChange>& labels)
{
    for (const auto& label : labels)
        tell(lw3::names, lw3::portName(label.side, label.index));
}

void LW3Session::tellEverything()
{
    const auto opened = m_opened;
    for (const auto& node : opened) {
        const auto properties = m_device.tree().properties(node).value_or(QList<LW3Property>());
        for (const auto& property : properties)
            tell(node, property.name);
    }
}

void LW3Session::say(const QByteArrayList& lines)
{
    if (!lines.isEmpty())
        m_connection.send(lines.join(lineEnd) + lineEnd);
}

} // namespace corvane::emulator
