#pragma once

#include "Controllers/ConnectionStore.h"
#include "Theme/GlassKit.h"
#include "support/FakeDriver.h"
#include "support/Files.h"
#include "support/ManualQueue.h"

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

/// A store with two routers, "Demo" and "Studio", the first one selected, whose drivers do as the test says.
class StoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        writeFile(m_folder.path(u"connections.json"_s),
            R"([{"name":"Demo","vendor":"simulator"},{"name":"Studio","vendor":"ajaKumo","host":"10.0.0.5"}])");
        store = std::make_unique<ConnectionStore>(queue, maker(), m_folder.path());
    }

    [[nodiscard]] RouterConnection demo() const { return router(u"Demo"_s); }
    [[nodiscard]] RouterConnection studio() const { return router(u"Studio"_s); }

    void comeUp(const RouterConnection& router)
    {
        store->controller(router).connect();
        m_drivers.value(router.id)->report(driverEvent::Connected{});
        queue.runReady();
    }

    ManualQueue queue;
    GlassKit theme{nullptr};
    std::unique_ptr<ConnectionStore> store;

private:
    /// By the name's beginning, so that it is found when it was edited.
    [[nodiscard]] RouterConnection router(const QString& name) const
    {
        const auto& routers = store->connections();
        return *std::ranges::find_if(routers, [&](const auto& each) { return each.name.startsWith(name); });
    }

    [[nodiscard]] DriverMaker maker()
    {
        return [this](const RouterConnection& router) {
            return m_drivers[router.id] = std::make_shared<FakeDriver>();
        };
    }

    TemporaryFolder m_folder;
    QHash<QUuid, std::shared_ptr<FakeDriver>> m_drivers;
};

} // namespace corvane
