#include "emulator/OptionValues.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace corvane::emulator {

int OptionValues::number(const QString& option, int least, int most)
{
    return number(option, text(option), least, most);
}

OptionValues::Size OptionValues::size(const QString& option, int most)
{
    const auto parts = text(option).split(u'x');
    if (parts.size() != 2) {
        fail(option);
        return {};
    }
    return {number(option, parts.first(), 1, most), number(option, parts.last(), 1, most)};
}

std::optional<QByteArray> OptionValues::file(const QString& option)
{
    if (!flag(option))
        return std::nullopt;
    QFile file(text(option));
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    complain(u"Can't read %1"_s.arg(text(option)));
    return std::nullopt;
}

int OptionValues::number(const QString& option, const QString& text, int least, int most)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    if (isNumber && value >= least && value <= most)
        return value;
    fail(option);
    return least;
}

void OptionValues::fail(const QString& option)
{
    complain(u"The value of --%1 makes no sense."_s.arg(option));
}

void OptionValues::complain(const QString& message)
{
    if (!m_complaint)
        m_complaint = message;
}

} // namespace corvane::emulator
