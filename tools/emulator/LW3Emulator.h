#pragma once

#include "emulator/EmulatorServer.h"
#include "emulator/LW3Tree.h"

namespace corvane::emulator {

/// A Lightware matrix on loopback: shows level 0 of its matrix as an LW3 tree, with names, locks and signals,
/// to any number of clients. A lock keeps everybody from taking, whoever made it, and anybody may undo it.
class LW3Emulator : public EmulatorServer {
    Q_OBJECT

public:
    /// Listens at once; see `isListening()`. Port 0 is any free one. The matrix must outlive the emulator.
    explicit LW3Emulator(EmulatedMatrix& matrix, quint16 port = 0, QObject* parent = nullptr);

    /// May be changed at any moment and hold for what is said from then on.
    LW3Quirks& quirks() { return m_quirks; }

    void setProductName(const QString& name) { m_device.productName = name.toUtf8(); }

    /// What an input receives from now on, like "1920x1080p60"; empty if nothing.
    void setResolution(int input, const QByteArray& resolution);

    const LW3Tree& tree() const { return m_tree; }

signals:
    void resolutionChanged(int input);

protected:
    std::unique_ptr<EmulatorSession> openSession(EmulatorConnection& connection) override;
    QByteArray halfMessage() const override;

private:
    LW3Quirks m_quirks;
    LW3Device m_device;
    LW3Tree m_tree;
};

} // namespace corvane::emulator
