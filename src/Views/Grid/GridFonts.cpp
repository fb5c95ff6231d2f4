#include "Views/Grid/GridFonts.h"

#include "Theme/Fonts.h"

namespace corvane::gridFonts {

QFont sourceLabel()
{
    return Fonts::text(11, QFont::Medium);
}

QFont sourceNumber()
{
    return Fonts::text(11, QFont::Bold);
}

QFont destinationLabel()
{
    return Fonts::text(12.5, QFont::DemiBold);
}

QFont destinationNumber()
{
    return Fonts::text(10, QFont::Bold);
}

QFont routedLabel()
{
    return Fonts::text(10, QFont::Normal);
}

QFont corner()
{
    return Fonts::text(9, QFont::Bold);
}

} // namespace corvane::gridFonts
