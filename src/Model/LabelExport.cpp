#include "Model/LabelExport.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Only what would end an attribute: apostrophes and what is not ASCII stay as they are.
QString escaped(QString text)
{
    return text.replace(u'&', "&amp;"_L1)
        .replace(u'<', "&lt;"_L1)
        .replace(u'>', "&gt;"_L1)
        .replace(u'"', "&quot;"_L1);
}

/// Without ports there is an empty line between the tags.
QString block(const QString& name, const QList<Port>& ports)
{
    QStringList lines;
    lines.reserve(ports.size());
    for (const auto& port : ports)
        lines << uR"(    <port number="%1" name="%2"/>)"_s.arg(
            QString::number(port.index + 1), escaped(port.label));
    return u"  <%1>\n%2\n  </%1>"_s.arg(name, lines.join(u'\n'));
}

QString labelAt(const QList<Port>& ports, qsizetype position)
{
    return position < ports.size() ? ports[position].label : QString();
}

} // namespace

QString LabelExport::xml(const RouterState& state)
{
    return u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<routerLabels device=\"%1\">\n%2\n%3\n</routerLabels>"_s
        .arg(escaped(state.deviceName), block(u"sources"_s, state.sources),
            block(u"destinations"_s, state.destinations));
}

QString LabelExport::tsv(const RouterState& state)
{
    const auto count = std::max(state.sources.size(), state.destinations.size());
    QStringList lines;
    lines.reserve(count);
    for (qsizetype i = 0; i < count; ++i)
        lines << u"%1\t%2\t%3"_s.arg(
            QString::number(i + 1), labelAt(state.sources, i), labelAt(state.destinations, i));
    return lines.join(u'\n');
}

} // namespace corvane
