#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/OptionValues.h"

#include <QCommandLineOption>
#include <QList>
#include <QString>

#include <functional>
#include <memory>

namespace corvane::emulator {

/// Makes a router's face, with its quirks, that listens on a port.
using MakeFace = std::function<std::unique_ptr<EmulatorServer>(EmulatedMatrix& matrix, quint16 port)>;

/// One protocol that `corvane-emulator` can speak.
struct Face {
    /// What chooses it on the command line.
    QString option;
    QString protocol;
    /// The options that only this face has.
    QList<QCommandLineOption> options;
    MakeFace (*read)(OptionValues& values) = nullptr;
};

QList<Face> allFaces();

} // namespace corvane::emulator
