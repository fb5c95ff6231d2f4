#include "emulator/QuartzCommand.h"

#include <algorithm>

namespace corvane::emulator {

namespace {

bool isLetter(char byte)
{
    return byte >= 'A' && byte <= 'Z';
}

QByteArray takeLetters(QByteArray& rest)
{
    qsizetype count = 0;
    while (count < rest.size() && isLetter(rest[count]))
        ++count;
    const auto letters = rest.left(count);
    rest.remove(0, letters.size());
    return letters;
}

/// The port that a number from 1 names, or -1, which no matrix has.
int port(const QByteArray& number)
{
    return std::max(number.toInt(), 0) - 1;
}

std::optional<QList<int>> readLevels(const QByteArray& letters, const EmulatedMatrix& matrix)
{
    QList<int> levels;
    for (const char letter : letters) {
        const int level = letter == 'V' ? 0 : letter - 'A' + 1;
        if (!matrix.hasLevel(level) || levels.contains(level))
            return std::nullopt;
        levels << level;
    }
    return levels.isEmpty() ? std::nullopt : std::optional(levels);
}

} // namespace

char quartz::levelLetter(int level)
{
    return level == 0 ? 'V' : static_cast<char>('A' + level - 1);
}

std::optional<QuartzCommand> readQuartzCommand(const QByteArray& line, const EmulatedMatrix& matrix)
{
    const bool isTake = line.startsWith(".S");
    if (!isTake && !line.startsWith(".I"))
        return std::nullopt;
    auto rest = line.mid(2);
    const auto levels = readLevels(takeLetters(rest), matrix);
    const auto numbers = rest.split(',');
    if (!levels || numbers.size() != (isTake ? 2 : 1))
        return std::nullopt;

    QuartzCommand command{.verb = line[1], .levels = *levels, .destination = port(numbers.first())};
    if (isTake)
        command.source = port(numbers.last());
    if (command.destination < 0 || (isTake && command.source < 0))
        return std::nullopt;
    command.exists = matrix.has(Side::Destination, command.destination)
        && (!isTake || matrix.has(Side::Source, command.source));
    return command;
}

} // namespace corvane::emulator
