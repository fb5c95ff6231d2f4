#include "emulator/CommandLine.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

namespace {

// More ports than any router has, and few enough to answer at once.
constexpr int mostPorts = 10'000;

// What the protocols can name.
constexpr int mostLevels = 16;

// What a timer that counts milliseconds can still hold.
constexpr int mostSeconds = std::numeric_limits<int>::max() / 1000;

void addSharedOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        u"Plays a video router on 127.0.0.1. With a protocol and --help it tells that router's options."_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"port"_s, u"Listen on this port instead of any free one."_s, u"port"_s, u"0"_s},
        {u"size"_s, u"Sources x destinations."_s, u"SxD"_s, u"16x16"_s},
        {u"levels"_s, u"How many levels; SW-P-08 and Quartz show them all."_s, u"count"_s, u"1"_s},
        {u"locked"_s, u"Let somebody else have locked the first destinations."_s, u"count"_s, u"0"_s},
        {u"unrouted"_s, u"Let the first destinations show nothing."_s, u"count"_s, u"0"_s},
        {u"odd-names"_s, u"Put signs into names that the protocols use themselves."_s},
        {u"refuse"_s, u"Refuse the first commands, this many."_s, u"count"_s, u"0"_s},
        {u"acknowledge-only"_s, u"Acknowledge commands and do nothing."_s},
        {u"silent"_s, u"Accept connections and say nothing."_s},
        {u"pieces"_s, u"Send in pieces of this many bytes."_s, u"bytes"_s, u"0"_s},
        {u"close-after"_s, u"Close each connection after so much output."_s, u"bytes"_s},
        {u"change-every"_s, u"Let somebody else take something this often."_s, u"ms"_s},
        {u"seconds"_s, u"End after this time."_s, u"seconds"_s},
        {u"until-stdin-closes"_s, u"End when standard input closes."_s},
    });
}

/// Adds what chooses each face, and the options of those that are chosen.
QList<Face> addFaces(QCommandLineParser& parser, const QStringList& arguments)
{
    QList<Face> chosen;
    for (const auto& face : allFaces()) {
        parser.addOption({face.option, u"Speak the %1 protocol."_s.arg(face.protocol)});
        if (arguments.contains(u"--"_s + face.option))
            chosen << face;
    }
    if (chosen.size() == 1)
        parser.addOptions(chosen.first().options);
    return chosen;
}

UsageError needsOneFace()
{
    QStringList options;
    for (const auto& face : allFaces())
        options << u"--"_s + face.option;
    return {u"Say which one router to play: %1"_s.arg(options.join(u", "_s))};
}

Faults readFaults(OptionValues& values)
{
    return {
        .refuseNext = values.number(u"refuse"_s),
        .acknowledgeOnly = values.flag(u"acknowledge-only"_s),
        .silent = values.flag(u"silent"_s),
        .pieceSize = values.number(u"pieces"_s),
        .closeAfterBytes = values.optional<qint64>(u"close-after"_s),
    };
}

CommandLine readValues(const Face& face, OptionValues& values)
{
    CommandLine line;
    line.protocol = face.protocol;
    line.makeFace = face.read(values);
    line.port = static_cast<quint16>(values.number(u"port"_s, 0, std::numeric_limits<quint16>::max()));
    const auto size = values.size(u"size"_s, mostPorts);
    line.sources = size.width;
    line.destinations = size.height;
    line.levels = values.number(u"levels"_s, 1, mostLevels);
    line.locked = values.number(u"locked"_s, 0, size.height);
    line.unrouted = values.number(u"unrouted"_s, 0, size.height);
    line.oddNames = values.flag(u"odd-names"_s);
    line.faults = readFaults(values);
    line.changeEvery = values.optional<std::chrono::milliseconds>(u"change-every"_s);
    line.lifetime = values.optional<std::chrono::seconds>(u"seconds"_s, mostSeconds);
    line.untilStdinCloses = values.flag(u"until-stdin-closes"_s);
    return line;
}

} // namespace

std::variant<CommandLine, UsageError> readCommandLine(const QStringList& arguments)
{
    QCommandLineParser parser;
    addSharedOptions(parser);
    const auto faces = addFaces(parser, arguments);
    const bool isReadable = parser.parse(arguments);
    if (parser.isSet(u"help"_s))
        parser.showHelp();
    if (faces.size() != 1)
        return needsOneFace();
    if (!isReadable)
        return UsageError{parser.errorText()};
    if (!parser.positionalArguments().isEmpty())
        return UsageError{u"Unexpected argument '%1'."_s.arg(parser.positionalArguments().first())};

    OptionValues values(parser);
    auto line = readValues(faces.first(), values);
    if (const auto complaint = values.complaint())
        return UsageError{*complaint};
    return line;
}

} // namespace corvane::emulator
