#include "Views/Workspace/ToolbarModel.h"
#include "ViewModelTest.h"

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

/// "rectangle.grid.3x2 Full Router, [Crosspoint] Dropdown"; empty while there is no toolbar.
QString read(const ToolbarContent& content)
{
    if (!content.isShown)
        return {};
    auto views = ToolbarModel::viewModeTexts();
    views[content.viewMode] = u"[%1]"_s.arg(views.at(content.viewMode));
    return u"%1 %2, %3"_s.arg(content.panelSymbol, content.panelText, views.join(u' '));
}

using ToolbarModelTest = ViewModelTest<ToolbarModel>;

TEST_F(ToolbarModelTest, NamesThePanelAndTheViewOfAConnectedRouter)
{
    SubPanel panel{.name = u"Gallery"_s, .sourceIndices = {0}, .destinationIndices = {0}};
    const auto save = [&](const QString& name) {
        return [&, name] { panel.name = name, controller->savePanel(panel); };
    };
    const auto choose = [this](int view) { return [this, view] { model.chooseViewMode(view); }; };
    const auto full = u"rectangle.grid.3x2 Full Router, "_s;
    struct Step {
        std::function<void()> happens;
        QString shown;
    };
    const Step steps[] = {
        {[] {}, {}},
        {[this] { connectTo(matrix(2, 2)); }, full + u"[Crosspoint] Dropdown"_s},
        {choose(1), full + u"Crosspoint [Dropdown]"_s},
        {choose(0), full + u"[Crosspoint] Dropdown"_s},
        {save(u"Gallery"_s), full + u"[Crosspoint] Dropdown"_s},
        {[&] { controller->setActivePanelID(panel.id); },
            u"rectangle.grid.1x2 Gallery, [Crosspoint] Dropdown"_s},
        {save(u"Studio"_s), u"rectangle.grid.1x2 Studio, [Crosspoint] Dropdown"_s},
        {[&] { controller->deletePanel(panel); }, full + u"[Crosspoint] Dropdown"_s},
        {[this] { report(driverEvent::Disconnected{}); }, {}},
    };
    for (const auto& step : steps) {
        step.happens();
        EXPECT_EQ(read(model.content()), step.shown);
    }
}

} // namespace

} // namespace corvane
