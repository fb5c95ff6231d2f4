#include "Theme/Fonts.h"

#include "Model/RouterModels.h"
#include "Theme/Symbols.h"

#include <QFontMetricsF>
#include <QRawFont>

#include <gtest/gtest.h>

using namespace corvane;

namespace {

class FontsTest : public testing::Test {
protected:
    static void SetUpTestSuite() { Fonts::load(); }
};

TEST_F(FontsTest, EachWeightIsAFaceOfItsOwnAndNotAMadeUpOne)
{
    for (const auto weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        SCOPED_TRACE(weight);
        const auto raw = QRawFont::fromFont(Fonts::text(13, weight));
        EXPECT_EQ(raw.familyName().section(u' ', 0, 0), u"Inter"_qs);
        EXPECT_EQ(raw.weight(), weight);
    }
}

TEST_F(FontsTest, AFractionOfAPixelCounts)
{
    const auto width = [](double size) {
        return QFontMetricsF(Fonts::text(size)).horizontalAdvance(QString(40, u'm'));
    };
    EXPECT_GT(width(12.5), width(12));
    EXPECT_LT(width(12.5), width(13));
}

TEST_F(FontsTest, EverySymbolHasAGlyphInTheIconFont)
{
    const auto font = QRawFont::fromFont(Fonts::symbol(16));
    ASSERT_EQ(font.familyName(), Fonts::symbolFamily());
    for (const auto& name : symbolNames()) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(symbolGlyph(name));
        EXPECT_TRUE(font.supportsCharacter(QChar(*symbolGlyph(name))));
    }
}

TEST(Symbols, EveryVendorHasOne)
{
    for (const auto vendor : allRouterVendors) {
        SCOPED_TRACE(displayName(vendor).toStdString());
        EXPECT_TRUE(symbolGlyph(symbolName(vendor)));
    }
}

TEST(Symbols, AnUnknownNameHasNone)
{
    EXPECT_FALSE(symbolGlyph(u"unheard.of"));
}

} // namespace
