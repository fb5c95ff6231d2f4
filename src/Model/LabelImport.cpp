#include "Model/LabelImport.h"

#include "Foundation/Text.h"
#include "Model/LabelXMLDelegate.h"

#include <QList>
#include <QXmlStreamReader>

#include <algorithm>

namespace corvane {

namespace {

using Cells = QList<QStringView>;

bool breaksLine(QChar character)
{
    const auto code = character.unicode();
    return (code >= u'\n' && code <= u'\r') || code == u'\u0085' || code == u'\u2028' || code == u'\u2029';
}

/// A line without its delimiter is one cell, as it stands. `cells` is used again, for one allocation is
/// enough.
void splitCells(QStringView line, Cells& cells)
{
    cells.clear();
    const QChar delimiter = line.contains(u'\t') ? u'\t' : u',';
    for (qsizetype start = 0, end = 0; end >= 0; start = end + 1) {
        end = line.indexOf(delimiter, start);
        cells << text::trimBlanks(end < 0 ? line.sliced(start) : line.sliced(start, end - start));
    }
}

std::optional<qint64> number(QStringView cell)
{
    // What is longer than any number is a name; looking at it as a number would copy it.
    constexpr qsizetype longestNumber = 64;
    if (cell.size() > longestNumber)
        return std::nullopt;
    const auto bytes = cell.toUtf8();
    return text::decimalInteger({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

/// The names of one kind of port, and where the next one without a number goes.
class Column {
public:
    explicit Column(QHash<qint64, QString>& names) : m_names(names) { }

    void append(QStringView name) { put(m_next++, name.toString()); }

    /// `written` counts from 1.
    void putAt(qint64 written, const QString& name)
    {
        if (written >= 1)
            put(written - 1, name);
    }

private:
    void put(qint64 index, const QString& name)
    {
        if (!name.isEmpty())
            m_names.insert(index, name);
    }

    QHash<qint64, QString>& m_names;
    qint64 m_next = 0;
};

void readPair(const Cells& cells, Column& sources, Column& destinations)
{
    const auto written = cells.size() >= 3 ? number(cells[0]) : std::nullopt;
    if (written) {
        sources.putAt(*written, cells[1].toString());
        destinations.putAt(*written, cells[2].toString());
        return;
    }
    sources.append(cells[0]);
    if (cells.size() >= 2)
        destinations.append(cells[1]);
}

QString joined(const Cells& cells)
{
    QString text = cells.first().toString();
    for (const auto cell : cells.sliced(1))
        text.append(u' ').append(cell);
    return text;
}

void readName(const Cells& cells, Column& names)
{
    const auto written = cells.size() >= 2 ? number(cells[0]) : std::nullopt;
    if (written)
        names.putAt(*written, joined(cells.sliced(1)));
    else
        names.append(cells[0]);
}

} // namespace

ParsedLabels LabelImport::parseDelimited(QStringView text, DelimitedTarget target)
{
    ParsedLabels labels;
    Column sources(labels.sources);
    Column destinations(labels.destinations);
    Cells cells;
    for (const auto* start = text.begin(); start != text.end();) {
        const auto* const end = std::find_if(start, text.end(), breaksLine);
        const auto line = text::trimBlanks(QStringView(start, end));
        start = end == text.end() ? end : end + 1;
        if (line.isEmpty())
            continue;
        splitCells(line, cells);
        if (target == DelimitedTarget::both)
            readPair(cells, sources, destinations);
        else
            readName(cells, target == DelimitedTarget::sources ? sources : destinations);
    }
    return labels;
}

ParsedLabels LabelImport::parseXML(const QByteArray& document)
{
    LabelXMLDelegate delegate;
    QXmlStreamReader reader(document);
    // A prefix stays part of a name.
    reader.setNamespaceProcessing(false);
    reader.setEntityExpansionLimit(0);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            delegate.startElement(reader.qualifiedName(), reader.attributes());
            break;
        case QXmlStreamReader::Characters:
            delegate.foundCharacters(reader.text());
            break;
        case QXmlStreamReader::EndElement:
            delegate.endElement(reader.qualifiedName());
            break;
        default:
            break;
        }
    }
    return delegate.labels();
}

} // namespace corvane
