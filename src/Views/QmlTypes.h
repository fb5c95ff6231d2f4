#pragma once

#include "Controllers/MatrixController.h"

#include <QtQml/qqmlregistration.h>

namespace corvane {

/// Lets screens name the type of what they are given.
struct QmlMatrixController {
    Q_GADGET
    QML_FOREIGN(corvane::MatrixController)
    QML_NAMED_ELEMENT(MatrixController)
    QML_UNCREATABLE("There is one for each saved router.")
};

} // namespace corvane
