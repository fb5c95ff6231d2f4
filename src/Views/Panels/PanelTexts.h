#pragma once

#include "Model/RouterModels.h"

/// What the screens say of panels.
namespace corvane::panelTexts {

/// "8 in × 2 out"
[[nodiscard]] QString size(const SubPanel& panel);
/// A port's number as people count, whatever a file claims its index to be.
[[nodiscard]] QString number(qint64 index);
/// What stands in a panel's list for a port that the router hasn't got.
[[nodiscard]] QString missingPort(qint64 index);
/// How many saved ports the router hasn't got; empty for none.
[[nodiscard]] QString missing(qsizetype count);
[[nodiscard]] QString deleteTitle(const SubPanel& panel);
/// `salvos` is how many are saved for the panel.
[[nodiscard]] QString deleteMessage(qint64 salvos);

} // namespace corvane::panelTexts
