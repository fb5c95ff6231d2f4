#include "emulator/CommandLine.h"
#include "emulator/ProcessLifetime.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace corvane::emulator;

namespace {

int complain(const QString& message)
{
    QTextStream(stderr) << message << Qt::endl;
    return EXIT_FAILURE;
}

MatrixState initialState(const CommandLine& line)
{
    auto state = MatrixState::ofSize(line.sources, line.destinations, line.levels);
    std::fill_n(state.lockOwners.begin(), line.locked, somebodyElse);
    for (auto& routes : state.routes)
        std::fill_n(routes.begin(), line.unrouted, noSource);
    if (line.oddNames) {
        for (auto* const labels : {&state.sourceLabels, &state.destinationLabels}) {
            for (auto& label : *labels)
                label += u"; 50%=\"\u00e4\": {#&?}"_s;
        }
    }
    return state;
}

/// Goes round the destinations, level by level, and gives each the source after the one it has.
void takeSomething(EmulatedMatrix& matrix, int turn)
{
    const int destination = turn % matrix.count(Side::Destination);
    const int level = turn / matrix.count(Side::Destination) % matrix.levelCount();
    const int source = (matrix.source(level, destination) + 1) % matrix.count(Side::Source);
    matrix.setRoutes({{.level = level, .destination = destination, .source = source}});
}

void limitLife(const CommandLine& line, QCoreApplication& application)
{
    if (line.lifetime)
        QTimer::singleShot(*line.lifetime, &application, &QCoreApplication::quit);
    if (line.untilStdinCloses)
        quitWhenStandardInputCloses().release()->setParent(&application);
}

int run(const CommandLine& line, QCoreApplication& application)
{
    EmulatedMatrix matrix(initialState(line));
    const auto router = line.makeFace(matrix, line.port);
    if (!router->isListening())
        return complain(u"Can't listen on port %1: %2"_s.arg(line.port).arg(router->errorText()));
    router->faults() = line.faults;

    QTimer somebody;
    QObject::connect(
        &somebody, &QTimer::timeout, &matrix, [&, turn = 0]() mutable { takeSomething(matrix, turn++); });
    if (line.changeEvery)
        somebody.start(*line.changeEvery);

    limitLife(line, application);
    QTextStream(stdout) << u"%1 %2x%3 on 127.0.0.1:%4"_s.arg(line.protocol)
                               .arg(matrix.count(Side::Source))
                               .arg(matrix.count(Side::Destination))
                               .arg(router->port())
                        << Qt::endl;
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const auto line = readCommandLine(QCoreApplication::arguments());
    if (const auto* error = std::get_if<UsageError>(&line))
        return complain(error->message);
    const auto termination = quitOnTermination();
    return run(std::get<CommandLine>(line), application);
}
