#pragma once

#include "Model/ParsedLabels.h"

#include <QByteArray>
#include <QStringView>

namespace corvane {

/// What a pasted text names.
enum class DelimitedTarget { sources, destinations, both };

/// Reads names from text of rows and cells, as spreadsheets copy it and `LabelExport::tsv` writes it. Never
/// fails: what makes no sense is passed over.
namespace LabelImport {

/// A line's cells are cut at tabs if it has one, else at commas; there are no quotes and no header row.
/// Numbers in the text count from 1, a row with one names that port, the other rows name the ports from the
/// first on:
/// - for one kind of port a row is a name, or a number and the parts of a name;
/// - for both it is a source's name, a source's and a destination's, or a number and these two.
[[nodiscard]] ParsedLabels parseDelimited(QStringView text, DelimitedTarget target);

/// Reads a document's names, up to where it can no longer be understood. Entities that the document declares
/// are not expanded but end the reading; nothing is ever fetched.
[[nodiscard]] ParsedLabels parseXML(const QByteArray& document);

} // namespace LabelImport

} // namespace corvane
