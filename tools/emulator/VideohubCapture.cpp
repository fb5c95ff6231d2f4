#include "emulator/VideohubCapture.h"

#include "emulator/VideohubBlockReader.h"
#include "emulator/VideohubWriter.h"

#include <functional>

namespace corvane::emulator {

namespace {

// A number of ports that no router has: whoever claims more is not believed.
constexpr int mostPorts = 10'000;

struct Size {
    int inputs = 0;
    int outputs = 0;
};

int portCount(const QByteArray& line)
{
    const int count = line.mid(line.indexOf(':') + 1).trimmed().toInt();
    return count > 0 && count <= mostPorts ? count : 0;
}

Size readSize(const QList<VideohubBlock>& blocks)
{
    Size size;
    for (const auto& block : blocks) {
        if (block.header.trimmed() != videohub::deviceHeader)
            continue;
        for (const auto& line : block.lines) {
            if (line.trimmed().startsWith("Video inputs:"))
                size.inputs = portCount(line);
            else if (line.trimmed().startsWith("Video outputs:"))
                size.outputs = portCount(line);
        }
    }
    return size;
}

/// Calls `use` with the text behind each port number below `count`.
void forEachPort(const VideohubBlock& block, qsizetype count,
    const std::function<void(qsizetype index, const QByteArray& text)>& use)
{
    for (const auto& line : block.lines) {
        const auto entry = line.trimmed();
        const auto blank = entry.indexOf(' ');
        bool isNumber = false;
        const int index = entry.left(blank < 0 ? entry.size() : blank).toInt(&isNumber);
        if (isNumber && index >= 0 && index < count)
            use(index, blank < 0 ? QByteArray() : entry.mid(blank + 1));
    }
}

void readLabels(const VideohubBlock& block, QStringList& labels)
{
    forEachPort(
        block, labels.size(), [&](auto index, const auto& text) { labels[index] = QString::fromUtf8(text); });
}

void readRoutes(const VideohubBlock& block, MatrixState& state)
{
    auto& routes = state.routes.front();
    forEachPort(block, routes.size(), [&](auto index, const auto& text) {
        bool isNumber = false;
        const int source = text.toInt(&isNumber);
        const bool exists = isNumber && source >= 0 && source < state.sourceLabels.size();
        routes[index] = exists ? source : noSource;
    });
}

void readLocks(const VideohubBlock& block, MatrixState& state)
{
    forEachPort(block, state.lockOwners.size(), [&](auto index, const auto& text) {
        state.lockOwners[index] = text == "U" ? std::nullopt : std::optional(somebodyElse);
    });
}

void readBlock(const VideohubBlock& block, MatrixState& state)
{
    const auto header = block.header.trimmed();
    if (header == videohub::inputLabelsHeader)
        readLabels(block, state.sourceLabels);
    else if (header == videohub::outputLabelsHeader)
        readLabels(block, state.destinationLabels);
    else if (header == videohub::locksHeader)
        readLocks(block, state);
    else if (header == videohub::routingHeader || header == videohub::olderRoutingHeader)
        readRoutes(block, state);
}

} // namespace

std::optional<MatrixState> readVideohubCapture(const QByteArray& greeting)
{
    const auto blocks = VideohubBlockReader().feed(greeting + "\n\n");
    const auto size = readSize(blocks);
    if (size.inputs == 0 || size.outputs == 0)
        return std::nullopt;

    auto state = MatrixState::ofSize(size.inputs, size.outputs);
    for (const auto& block : blocks)
        readBlock(block, state);
    return state;
}

} // namespace corvane::emulator
