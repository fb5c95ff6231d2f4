#include "fuzz/ParserFuzzing.h"

#include "Controllers/MatrixController.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/SalvoStore.h"
#include "support/ManualQueue.h"

#include <QTemporaryDir>

#include <cstdlib>

namespace corvane::fuzz {

namespace {

using namespace std::chrono_literals;

/// More than any parser promises to believe.
constexpr qsizetype mostPorts = 65536;

/// The stream's owner; the conversation itself goes past it.
class SilentDriver final : public RouterDriver {
public:
    QCoro::Task<> connect() override { co_return; }
    QCoro::Task<> disconnect() override { co_return; }
    QCoro::Task<> take(qint64, qint64, qint64) override { co_return; }
    QCoro::Task<> setLock(qint64, qint64, bool) override { co_return; }
    QCoro::Task<> setLabel(QString, qint64, PortKind) override { co_return; }
};

struct Stores {
    QTemporaryDir folder;
    LabelStore labels{folder.path()};
    SalvoStore salvos{folder.path()};
    PanelStore panels{folder.path()};
};

void require(bool isSane)
{
    if (!isSane)
        std::abort();
}

void requirePorts(const QList<Port>& ports)
{
    require(ports.size() <= mostPorts);
    for (qsizetype place = 0; place < ports.size(); ++place)
        require(ports[place].index == place);
}

/// What a screen would ask for.
void look(const MatrixController& controller)
{
    requirePorts(controller.state().sources);
    requirePorts(controller.state().destinations);
    require(controller.visibleSources().size() == controller.state().sources.size());
    Salvo salvo;
    for (const auto& [level, destinations] : controller.state().routing.asKeyValueRange()) {
        for (const auto& [destination, source] : destinations.asKeyValueRange())
            salvo.routes.append({level, destination, source});
    }
    require(controller.diff(salvo).changes.isEmpty());
}

} // namespace

void playConversation(Bytes input, const ParserMaker& makeParser)
{
    static Stores stores;
    if (input.size() < 2)
        return;
    const auto pause = input[1] * 10ms;
    std::string_view rest(reinterpret_cast<const char*>(input.data()) + 2, input.size() - 2);
    const std::size_t pieceSize = input[0] == 0 ? std::max<std::size_t>(rest.size(), 1) : input[0];

    ManualQueue queue;
    const auto driver = std::make_shared<SilentDriver>();
    const auto controller = std::make_shared<MatrixController>(RouterConnection{},
        MatrixController::Environment{
            queue, [&](const auto&) { return driver; }, stores.labels, stores.salvos, stores.panels});
    controller->connect();
    queue.runReady();
    const auto parser = makeParser(queue, driver->events());
    parser->begin();
    while (!rest.empty()) {
        parser->ingest(rest.substr(0, pieceSize));
        rest.remove_prefix(std::min(pieceSize, rest.size()));
        queue.runReady();
        queue.advance(pause);
    }
    queue.advance(10s);
    look(*controller);
    controller->disconnect();
    queue.runReady();
}

} // namespace corvane::fuzz
