#include "Model/Naming.h"

#include "Foundation/Text.h"

#include <algorithm>

namespace corvane::naming {

namespace {

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

} // namespace

QString entered(const QString& name)
{
    QString line = name;
    std::ranges::replace_if(line, isControl, QChar::Space);
    // Trimmed again, for the cut may fall behind a blank.
    return text::trimWhiteSpace(kept(text::trimWhiteSpace(line)));
}

QString kept(const QString& name)
{
    if (name.size() <= longest)
        return name;
    return name.left(name.at(longest - 1).isHighSurrogate() ? longest - 1 : longest);
}

} // namespace corvane::naming
