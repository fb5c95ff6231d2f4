#include "emulator/Faces.h"

#include "emulator/KumoEmulator.h"
#include "emulator/LW3Emulator.h"
#include "emulator/QuartzEmulator.h"
#include "emulator/SWP08Emulator.h"
#include "emulator/VideohubEmulator.h"

using namespace Qt::StringLiterals;

namespace corvane::emulator {

namespace {

QCommandLineOption flag(const QString& name, const QString& description)
{
    return {name, description};
}

QCommandLineOption value(
    const QString& name, const QString& description, const QString& what, const QString& usual = {})
{
    return {name, description, what, usual};
}

/// Makes faces of one kind with the given quirks.
template <typename Emulator, typename Quirks>
MakeFace withQuirks(const Quirks& quirks)
{
    return [quirks](EmulatedMatrix& matrix, quint16 port) {
        auto face = std::make_unique<Emulator>(matrix, port);
        face->quirks() = quirks;
        return face;
    };
}

QList<QCommandLineOption> videohubOptions()
{
    return {
        value(u"name"_s, u"The friendly name."_s, u"name"_s, VideohubIdentity().friendlyName),
        value(u"play"_s, u"Greet with the bytes of this file."_s, u"file"_s),
        flag(u"no-end-prelude"_s, u"Leave out \"END PRELUDE:\"."_s),
        flag(u"no-locks"_s, u"Be a router that cannot lock."_s),
        flag(u"no-configuration"_s, u"Leave out \"CONFIGURATION:\"."_s),
        flag(u"crlf"_s, u"End lines with CR LF."_s),
        flag(u"older-routing-header"_s, u"Say \"VIDEOHUB OUTPUT ROUTING:\"."_s),
        flag(u"extra-blocks"_s, u"Greet with unusual blocks too."_s),
        flag(u"own-locks-foreign"_s, u"Show a client its own locks as another's."_s),
        flag(u"whole-tables"_s, u"Tell the whole table after each change."_s),
    };
}

MakeFace readVideohub(OptionValues& values)
{
    const VideohubQuirks quirks{
        .omitEndPrelude = values.flag(u"no-end-prelude"_s),
        .crLfLineEnds = values.flag(u"crlf"_s),
        .olderRoutingHeader = values.flag(u"older-routing-header"_s),
        .extraBlocks = values.flag(u"extra-blocks"_s),
        .omitLocks = values.flag(u"no-locks"_s),
        .omitConfiguration = values.flag(u"no-configuration"_s),
        .ownLocksLookForeign = values.flag(u"own-locks-foreign"_s),
        .tellWholeTables = values.flag(u"whole-tables"_s),
    };
    const auto name = values.text(u"name"_s);
    const auto capture = values.file(u"play"_s);
    return [=](EmulatedMatrix& matrix, quint16 port) {
        auto hub = std::make_unique<VideohubEmulator>(matrix, port);
        hub->quirks() = quirks;
        hub->identity().friendlyName = name;
        if (capture)
            hub->playCapture(*capture);
        return hub;
    };
}

QList<QCommandLineOption> swp08Options()
{
    return {
        value(u"answer-as"_s, u"Answer with: tally, connected, byte-dump or word-dump."_s, u"form"_s,
            u"tally"_s),
        flag(u"acknowledge-last"_s, u"Acknowledge questions behind the answers."_s),
        flag(u"answer-together"_s, u"Answer questions that come together in one packet."_s),
        flag(u"highest-first"_s, u"Give joint answers from the highest destination down."_s),
        flag(u"omit-unrouted"_s, u"Do not report destinations that show nothing."_s),
        value(u"bad-checksums"_s, u"Spoil the first messages, this many."_s, u"count"_s, u"0"_s),
        flag(u"extra-messages"_s, u"Bring along messages nobody asked for."_s),
        flag(u"phantom-ports"_s, u"Report ports far beyond the size."_s),
        value(u"extended-from"_s, u"Speak of destinations from this one on in extended messages only."_s,
            u"number"_s),
    };
}

MakeFace readSwp08(OptionValues& values)
{
    using Form = SWP08Quirks::Form;
    return withQuirks<SWP08Emulator>(SWP08Quirks{
        .answerForm = values.choice<Form>(u"answer-as"_s,
            {{u"tally"_s, Form::Tally}, {u"connected"_s, Form::Connected}, {u"byte-dump"_s, Form::ByteDump},
                {u"word-dump"_s, Form::WordDump}}),
        .acknowledgeLast = values.flag(u"acknowledge-last"_s),
        .answerTogether = values.flag(u"answer-together"_s),
        .highestFirst = values.flag(u"highest-first"_s),
        .omitUnrouted = values.flag(u"omit-unrouted"_s),
        .badChecksums = values.number(u"bad-checksums"_s),
        .extraMessages = values.flag(u"extra-messages"_s),
        .phantomPorts = values.flag(u"phantom-ports"_s),
        .extendedFrom = values.optional<int>(u"extended-from"_s),
    });
}

QList<QCommandLineOption> quartzOptions()
{
    return {
        value(u"line-ends"_s, u"End lines with: cr, lf or crlf."_s, u"kind"_s, u"cr"_s),
        value(u"refusal"_s, u"Say this to what cannot be done, or nothing."_s, u"text"_s, u"?"_s),
        flag(u"padded-numbers"_s, u"Say 001 for 1."_s),
        flag(u"acknowledge-lines"_s, u"Say .A to a take before telling of it."_s),
        flag(u"ignore-repeats"_s, u"Say nothing to a take of what is there already."_s),
        flag(u"interpose-updates"_s, u"Tell of something else before each answer."_s),
        flag(u"echo-others"_s, u"Let clients hear each other's lines."_s),
        flag(u"ignore-absent-ports"_s, u"Say nothing to a question about a port that isn't there."_s),
    };
}

MakeFace readQuartz(OptionValues& values)
{
    using LineEnd = QuartzQuirks::LineEnd;
    return withQuirks<QuartzEmulator>(QuartzQuirks{
        .lineEnd = values.choice<LineEnd>(
            u"line-ends"_s, {{u"cr"_s, LineEnd::Cr}, {u"lf"_s, LineEnd::Lf}, {u"crlf"_s, LineEnd::CrLf}}),
        .refusal = values.text(u"refusal"_s).toUtf8(),
        .padNumbers = values.flag(u"padded-numbers"_s),
        .acknowledgeLines = values.flag(u"acknowledge-lines"_s),
        .ignoreRepeats = values.flag(u"ignore-repeats"_s),
        .interposeUpdates = values.flag(u"interpose-updates"_s),
        .echoOthers = values.flag(u"echo-others"_s),
        .ignoreAbsentPorts = values.flag(u"ignore-absent-ports"_s),
    });
}

QList<QCommandLineOption> lw3Options()
{
    return {
        value(u"name"_s, u"The product name."_s, u"name"_s),
        flag(u"plain-names"_s, u"Name ports \"Camera\" instead of \"1;Camera\"."_s),
        flag(u"no-locks"_s, u"Be a router that cannot lock."_s),
        flag(u"trailing-semicolon"_s, u"End lists in \";\"."_s),
        value(u"call-result"_s, u"Put this behind calls that worked, or nothing."_s, u"text"_s, u"=OK"_s),
        value(u"error-prefix"_s, u"Begin all errors with this, like \"-E\"."_s, u"text"_s),
        flag(u"no-error-codes"_s, u"Leave out \"%E002:\" and the like."_s),
        flag(u"changes-inside"_s, u"Tell of a change before the answer's closing brace."_s),
        value(u"change-repeats"_s, u"Tell each change this often."_s, u"count"_s, u"1"_s),
    };
}

MakeFace readLw3(OptionValues& values)
{
    const LW3Quirks quirks{
        .plainNames = values.flag(u"plain-names"_s),
        .omitLocks = values.flag(u"no-locks"_s),
        .trailingSemicolon = values.flag(u"trailing-semicolon"_s),
        .callResult = values.text(u"call-result"_s).toUtf8(),
        .errorPrefix = values.text(u"error-prefix"_s).toUtf8(),
        .omitErrorCodes = values.flag(u"no-error-codes"_s),
        .changesInsideBlock = values.flag(u"changes-inside"_s),
        .changeRepeats = values.number(u"change-repeats"_s),
    };
    const auto name = values.text(u"name"_s);
    return [=](EmulatedMatrix& matrix, quint16 port) {
        auto device = std::make_unique<LW3Emulator>(matrix, port);
        device->quirks() = quirks;
        device->setProductName(name);
        return device;
    };
}

QList<QCommandLineOption> kumoOptions()
{
    return {
        flag(u"numeric-values"_s, u"Give numbers as JSON numbers."_s),
        flag(u"html-type"_s, u"Declare JSON to be text/html."_s),
        flag(u"login-required"_s, u"Answer everything with 404 and a page of HTML."_s),
        flag(u"broken-json"_s, u"Leave out the last brace."_s),
        value(u"fail"_s, u"Fail the first requests with 500, this many."_s, u"count"_s, u"0"_s),
        flag(u"close-each"_s, u"Close the connection behind every answer."_s),
    };
}

MakeFace readKumo(OptionValues& values)
{
    return withQuirks<KumoEmulator>(KumoQuirks{
        .numericValues = values.flag(u"numeric-values"_s),
        .htmlContentType = values.flag(u"html-type"_s),
        .loginRequired = values.flag(u"login-required"_s),
        .brokenJson = values.flag(u"broken-json"_s),
        .failNext = values.number(u"fail"_s),
        .closeEachConnection = values.flag(u"close-each"_s),
    });
}

} // namespace

QList<Face> allFaces()
{
    return {
        {u"videohub"_s, u"Videohub"_s, videohubOptions(), readVideohub},
        {u"swp08"_s, u"SW-P-08"_s, swp08Options(), readSwp08},
        {u"quartz"_s, u"Quartz"_s, quartzOptions(), readQuartz},
        {u"lw3"_s, u"LW3"_s, lw3Options(), readLw3},
        {u"kumo"_s, u"KUMO"_s, kumoOptions(), readKumo},
    };
}

} // namespace corvane::emulator
