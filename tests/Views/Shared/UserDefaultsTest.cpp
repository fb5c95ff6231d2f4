#include "Views/Shared/UserDefaults.h"
#include "support/Files.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

class UserDefaultsTest : public testing::Test {
protected:
    /// The size that the next start finds.
    [[nodiscard]] double keptCellSize() const
    {
        UserDefaults defaults(m_file);
        MatrixZoom zoom;
        defaults.keep(zoom);
        return zoom.cellSize();
    }

    TemporaryFolder m_folder;
    const QString m_file = m_folder.path(u"defaults.ini"_s);
};

TEST_F(UserDefaultsTest, TheCellSizeIsKeptTheMomentItChanges)
{
    EXPECT_EQ(keptCellSize(), 44);
    UserDefaults defaults(m_file);
    MatrixZoom zoom;
    defaults.keep(zoom);
    zoom.grow();
    EXPECT_EQ(keptCellSize(), 50);
}

TEST_F(UserDefaultsTest, WhatIsNoSizeGivesTheDefault)
{
    for (const auto& [text, size] :
        {std::pair("33", 33), {"large", 44}, {"", 44}, {"nan", 44}, {"@Invalid()", 44}}) {
        writeFile(m_file, QByteArray("[General]\nmatrixCellSize=") + text + "\n");
        EXPECT_EQ(keptCellSize(), size) << text;
    }
}

} // namespace

} // namespace corvane
