#include "emulator/KumoParameter.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

std::optional<KumoParameter> readKumoParameter(const QString& id, const EmulatedMatrix& matrix)
{
    if (id == "eParamID_NumberOfSources"_L1)
        return KumoParameter{KumoParameter::Kind::Count, Side::Source};
    if (id == "eParamID_NumberOfDestinations"_L1)
        return KumoParameter{KumoParameter::Kind::Count, Side::Destination};

    const QRegularExpression form(u"^eParamID_XPT_(Source|Destination)([1-9][0-9]*)_(Line_1|Status)$"_s);
    const auto match = form.match(id);
    if (!match.hasMatch())
        return std::nullopt;
    const auto side = match.captured(1) == "Source"_L1 ? Side::Source : Side::Destination;
    const auto kind =
        match.captured(3) == "Line_1"_L1 ? KumoParameter::Kind::Label : KumoParameter::Kind::Route;
    const int index = match.captured(2).toInt() - 1;
    const bool exists =
        matrix.has(side, index) && (kind == KumoParameter::Kind::Label || side == Side::Destination);
    return exists ? std::optional(KumoParameter{kind, side, index}) : std::nullopt;
}

QString kumoValue(const KumoParameter& parameter, const EmulatedMatrix& matrix)
{
    switch (parameter.kind) {
    case KumoParameter::Kind::Count:
        return QString::number(matrix.count(parameter.side));
    case KumoParameter::Kind::Label:
        return matrix.label(parameter.side, parameter.index);
    case KumoParameter::Kind::Route:
        return QString::number(matrix.source(0, parameter.index) + 1);
    }
    return {};
}

bool setKumoValue(const KumoParameter& parameter, const QString& value, EmulatedMatrix& matrix)
{
    switch (parameter.kind) {
    case KumoParameter::Kind::Count:
        return false;
    case KumoParameter::Kind::Label:
        return matrix.setLabels({{parameter.side, parameter.index, value}});
    case KumoParameter::Kind::Route:
        break;
    }
    const int source = value.toInt() - 1;
    return matrix.has(Side::Source, source) && matrix.setRoutes({{0, parameter.index, source}});
}

} // namespace corvane::emulator
