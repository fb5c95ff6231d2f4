#include "Picture.h"

#include <QFile>
#include <QImageWriter>

#include <algorithm>
#include <cstdlib>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// Of 255. The faintest thing we draw, a hairline of 6 %, makes a difference of 15.
constexpr int roundingLevels = 6;
/// The smallest thing we draw, a dot of 5 by 5, has twice as many.
constexpr int strayPixels = 10;

struct Difference {
    int pixels = 0;
    int levels = 0;
    QPoint first;
};

int levelsBetween(QRgb left, QRgb right)
{
    return std::max({std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
        std::abs(qBlue(left) - qBlue(right))});
}

Difference difference(const QImage& left, const QImage& right)
{
    Difference found;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const int levels = levelsBetween(left.pixel(x, y), right.pixel(x, y));
            if (levels <= roundingLevels)
                continue;
            if (found.pixels++ == 0)
                found.first = {x, y};
            found.levels = std::max(found.levels, levels);
        }
    return found;
}

/// Empty if it is the same picture.
std::string whatDiffers(const QImage& kept, const QImage& screen)
{
    if (kept.isNull())
        return "there is no such picture";
    if (kept.size() != screen.size())
        return "its size is another";
    const auto found = difference(kept, screen);
    if (found.pixels <= strayPixels)
        return {};
    return std::to_string(found.pixels) + " pixels differ, by up to " + std::to_string(found.levels)
        + " levels, the first at " + std::to_string(found.first.x()) + "," + std::to_string(found.first.y());
}

bool save(const QImage& screen, const QString& path)
{
    QImageWriter writer(path, "png");
    writer.setCompression(100);
    return writer.write(screen);
}

} // namespace

testing::AssertionResult looksAs(const QString& name, const QImage& screen)
{
    const auto path = QStringLiteral(CORVANE_SOURCE_FOLDER "/%1").arg(name);
    const auto keptPath = path + u".png"_s;
    const auto actualPath = path + u".actual.png"_s;
    const auto seen = screen.convertToFormat(QImage::Format_RGB888);
    const auto differs = whatDiffers(QImage(keptPath), seen);
    QFile::remove(actualPath);
    if (differs.empty())
        return testing::AssertionSuccess();
    if (qEnvironmentVariableIsSet("RENEW_PICTURES") && save(seen, keptPath))
        return testing::AssertionSuccess();
    const bool isSaved = save(seen, actualPath);
    return testing::AssertionFailure()
        << keptPath.toStdString() << ": " << differs << ". What is seen now is "
        << (isSaved ? "in " : "not written to ") << actualPath.toStdString()
        << ". If that is right, ./dev pictures keeps it.";
}

} // namespace corvane
