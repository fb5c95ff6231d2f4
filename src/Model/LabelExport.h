#pragma once

#include "Model/RouterModels.h"

/// Writes the names of a router's ports for spreadsheets and other machines. What is written are the names of
/// the state as given, and numbers count from 1. `LabelImport` and `LabelXMLDelegate` read it again.
namespace corvane::LabelExport {

/// An XML document of the device's name, then all sources, then all destinations, each with its own `index`
/// plus 1. Lines end with a line feed, the last with none.
[[nodiscard]] QString xml(const RouterState& state);

/// A line for each position: its number, the source's name, the destination's name, with tabs between; a side
/// that has run out is empty. Nothing is quoted: a tab or line feed in a name breaks its line. No line feed
/// at the end.
[[nodiscard]] QString tsv(const RouterState& state);

} // namespace corvane::LabelExport
