#include "Controllers/MatrixController.h"
#include "Foundation/EventLoopQueue.h"
#include "Model/LabelStore.h"
#include "Model/PanelStore.h"
#include "Model/RouterModelsJson.h"
#include "Model/SalvoStore.h"
#include "bench/BurstDriver.h"
#include "bench/Row.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <unistd.h>

/// What an operator waits for in a large facility: reading the saved state at start, and each change, which
/// is on the disk before the main thread goes on.
namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int routers = 200;
constexpr int ports = 1024;
constexpr int panelsEach = 64;
constexpr int salvosEach = 100;

QUuid routerID(int router)
{
    return QUuid(static_cast<uint>(router), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

double milliseconds(const auto& action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void writeFile(const QString& path, const auto& writeMembers)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("can't write %s", qPrintable(path));
    JsonWriter writer([&](QByteArrayView piece) { file.write(piece.data(), piece.size()); });
    writer.beginObject();
    writeMembers(writer);
    writer.endObject();
    writer.flush();
}

void writeLabels(JsonWriter& writer)
{
    for (int router = 0; router < routers; ++router) {
        writer.escapedKey(idText(routerID(router)));
        writer.beginObject();
        for (const auto* kind : {"sources", "destinations"}) {
            writer.key(kind);
            writer.beginObject();
            for (int port = 0; port < ports / 2; ++port) {
                writer.escapedKey(QString::number(port));
                writer.string(u"STUDIO %1 CAM %2"_s.arg(router).arg(port));
            }
            writer.endObject();
        }
        writer.endObject();
    }
}

SubPanel panelOf(int number)
{
    SubPanel panel;
    panel.name = u"Panel %1"_s.arg(number);
    for (qint64 port = number; port < ports; port += panelsEach / 4) {
        panel.sourceIndices.append(port);
        panel.destinationIndices.append(port);
    }
    return panel;
}

void writePanels(JsonWriter& writer)
{
    writer.key("panels");
    writer.beginObject();
    for (int router = 0; router < routers; ++router) {
        writer.escapedKey(idText(routerID(router)));
        writer.beginArray();
        for (int number = 0; number < panelsEach; ++number)
            writeJson(writer, panelOf(number));
        writer.endArray();
    }
    writer.endObject();
    writer.key("active");
    writer.beginObject();
    writer.endObject();
}

Salvo salvoOf(int number)
{
    Salvo salvo;
    salvo.name = u"Salvo %1"_s.arg(number);
    salvo.savedAt = Timestamp{700'000'000.25};
    for (qint64 destination = 0; destination < ports; ++destination)
        salvo.routes.append({0, destination, (destination + number) % ports});
    return salvo;
}

void writeSalvos(JsonWriter& writer)
{
    QList<Salvo> salvos;
    for (int number = 0; number < salvosEach; ++number)
        salvos.append(salvoOf(number));
    for (int router = 0; router < routers; ++router) {
        writer.escapedKey(idText(routerID(router)));
        writer.beginArray();
        for (const auto& salvo : salvos)
            writeJson(writer, salvo);
        writer.endArray();
    }
}

/// Bytes in order, synced: what no way of writing a whole file of this size can undercut.
double plainWrite(const QString& path, qint64 size)
{
    const QByteArray bytes(size, 'x');
    return milliseconds([&] {
        QFile file(path);
        file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        file.write(bytes);
        ::fsync(file.handle());
    });
}

void benchLabels(const QString& folder)
{
    std::optional<LabelStore> store;
    bench::printRow("labels.json, 200 routers: load", milliseconds([&] { store.emplace(folder); }), "ms");
    const auto rename = [&](int router, int number) {
        return milliseconds(
            [&] { store->set(QString::number(number), PortKind::source, number, routerID(router)); });
    };
    bench::printRow("  first rename", rename(0, 0), "ms", "<= 16");
    std::vector<double> times;
    for (int number = 0; number < 30; ++number)
        times.push_back(rename(number % routers, number));
    bench::printRow("  one rename, median", bench::median(times), "ms", "<= 16");
    const auto size = QFileInfo(folder + u"/labels.json"_s).size();
    bench::printRow("  as many plain bytes written and synced", plainWrite(folder + u"/plain"_s, size), "ms");
}

void benchPanels(const QString& folder)
{
    std::optional<PanelStore> store;
    bench::printRow("panels.json, 200 routers: load", milliseconds([&] { store.emplace(folder); }), "ms");
    std::vector<double> times;
    for (int number = 0; number < 10; ++number)
        times.push_back(milliseconds([&] { store->upsert(panelOf(number), routerID(number)); }));
    bench::printRow("  one panel saved, median", bench::median(times), "ms");
}

void benchSalvos(const QString& folder)
{
    std::optional<SalvoStore> store;
    bench::printRow(
        "salvos.json, 20.5 million routes: load", milliseconds([&] { store.emplace(folder); }) / 1e3, "s");
    std::vector<double> times;
    for (int number = 0; number < 3; ++number)
        times.push_back(milliseconds([&] { store->add(salvoOf(number), routerID(number)); }) / 1e3);
    bench::printRow("  one salvo saved, median", bench::median(times), "s");
    const auto size = QFileInfo(folder + u"/salvos.json"_s).size();
    bench::printRow("  its size", static_cast<double>(size) / 1e6, "MB");
    bench::printRow(
        "  as many plain bytes written and synced", plainWrite(folder + u"/plain"_s, size) / 1e3, "s");
}

void benchFire()
{
    MainQueue queue;
    const QTemporaryDir folder;
    LabelStore labels(folder.path());
    SalvoStore salvos(folder.path());
    PanelStore panels(folder.path());
    const auto driver = std::make_shared<bench::BurstDriver>(bench::largeState(ports));
    const auto controller = std::make_shared<MatrixController>(RouterConnection{},
        MatrixController::Environment{queue, [&](const auto&) { return driver; }, labels, salvos, panels});
    controller->connect();
    bench::pumpUntil([&] { return controller->isConnected(); });
    std::vector<double> diffs;
    std::vector<double> fires;
    for (int number = 0; number < 30; ++number) {
        const auto salvo = salvoOf(number);
        diffs.push_back(milliseconds([&] { (void)controller->diff(salvo); }));
        fires.push_back(milliseconds([&] { controller->fireSalvo(salvo); }));
        QCoreApplication::processEvents();
    }
    bench::printRow("salvo of 1,024 routes: its preview", bench::median(diffs), "ms");
    bench::printRow("  fired, until the main thread is free", bench::median(fires), "ms");
}

} // namespace

} // namespace corvane

int main(int argc, char** argv)
{
    using namespace corvane;
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    writeFile(folder.filePath(u"labels.json"_s), writeLabels);
    writeFile(folder.filePath(u"panels.json"_s), writePanels);
    writeFile(folder.filePath(u"salvos.json"_s), writeSalvos);
    benchFire();
    benchLabels(folder.path());
    benchPanels(folder.path());
    benchSalvos(folder.path());
    return 0;
}
