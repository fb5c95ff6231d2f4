#pragma once

#include "Foundation/JsonReader.h"
#include "Foundation/JsonWriter.h"
#include "Model/RouterModels.h"

/// The saved form of the records: the key names, their order, and what reading forgives.
namespace corvane {

/// The optional members are left out when absent.
void writeJson(JsonWriter& writer, const RouterConnection& connection);

/// Every key may be absent (or null) and has a default; an unknown vendor becomes a Videohub, so that a file
/// of a newer version still opens. A value of the wrong type throws `JsonError`.
RouterConnection routerConnectionFromJson(const JsonValue& json);

void writeJson(JsonWriter& writer, const SubPanel& panel);
/// All members are required; throws `JsonError`.
SubPanel subPanelFromJson(const JsonValue& json);

void writeJson(JsonWriter& writer, const Salvo& salvo);
/// All members but `savedAt` and `panelID` are required; throws `JsonError`.
Salvo salvoFromJson(const JsonValue& json);

} // namespace corvane
