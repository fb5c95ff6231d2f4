#pragma once

#include <QImage>
#include <QString>

#include <gtest/gtest.h>

namespace corvane {

/// Whether a screen looks as in the picture kept under `name`, a path in the repository without ".png".
///
/// If not, what it looks like is written beside it as "<name>.actual.png"; where RENEW_PICTURES is set in the
/// environment, it becomes the kept picture instead.
///
/// The faces are built into the program and all that could sway how they are drawn is fixed, so that a screen
/// comes out the same wherever it is drawn, antialiasing and hinting included. What is left is how processors
/// round when they blend: a few levels of a colour. A difference in size is no rounding, and more pixels than
/// could pass for rounding, by more levels than that, are a different picture.
[[nodiscard]] testing::AssertionResult looksAs(const QString& name, const QImage& screen);

} // namespace corvane
