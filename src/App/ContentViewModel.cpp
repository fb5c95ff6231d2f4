#include "App/ContentViewModel.h"

namespace corvane {

using namespace Qt::StringLiterals;

ContentViewModel::ContentViewModel(const WorkspaceModel::Environment& environment, ConnectionStore& store)
    : m_environment(environment), m_store(store), m_sidebar(store, environment.theme)
{
    connect(&store, &ConnectionStore::connectionsChanged, this, &ContentViewModel::update);
    connect(&store, &ConnectionStore::selectedConnectionIDChanged, this, &ContentViewModel::update);
    connect(&store, &ConnectionStore::saveProblemChanged, this, &ContentViewModel::saveProblemChanged);
    update();
}

ContentViewModel::~ContentViewModel()
{
    // There may be no next turn of the event loop when the program ends.
    delete m_workspace.release();
}

QVariantList ContentViewModel::workspaces() const
{
    return m_workspace ? QVariantList{QVariant::fromValue(m_workspace.get())} : QVariantList{};
}

QString ContentViewModel::windowTitle() const
{
    return m_workspace ? m_workspace->windowTitle() : u"Corvane"_s;
}

void ContentViewModel::dismissSaveProblem()
{
    m_store.dismissSaveProblem();
}

void ContentViewModel::windowIsUp()
{
    m_store.autoConnectOnLaunch();
}

void ContentViewModel::update()
{
    const auto selected = m_store.selectedConnection();
    auto* controller = selected ? &m_store.controller(*selected) : nullptr;
    const bool isSameRouter = m_workspace && controller && m_workspace->routerID() == controller->id();
    if (isSameRouter)
        m_workspace->setController(controller);
    else if (m_workspace || controller)
        replaceWorkspace(controller);
}

void ContentViewModel::replaceWorkspace(MatrixController* controller)
{
    // The screen of the old workspace goes first, and the prompt in it is not to come back with the router.
    const auto old = std::move(m_workspace);
    if (old)
        old->rename()->cancel();
    if (controller) {
        m_workspace.reset(new WorkspaceModel(m_environment, *controller));
        connect(m_workspace.get(), &ScreenModel::contentChanged, this, &ContentViewModel::windowTitleChanged);
    }
    emit workspaceChanged();
    emit windowTitleChanged();
}

} // namespace corvane
