#include "Foundation/ProfileLock.h"
#include "support/Files.h"
#include "support/Pump.h"

#include <gtest/gtest.h>

#include <QFile>

#include <array>
#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

namespace {

using namespace std::chrono_literals;
using Role = ProfileLock::Role;

class ProfileLockTest : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8()); }
    void TearDown() override { qunsetenv("XDG_RUNTIME_DIR"); }

    /// Whether the owner hears of a latecomer that asks.
    static bool hears(ProfileLock& owner, const ProfileLock& latecomer)
    {
        bool heard = false;
        // Ends with this call: the owner goes on hearing of others.
        const QObject listener;
        QObject::connect(&owner, &ProfileLock::cameAnother, &listener, [&] { heard = true; });
        return latecomer.askOwnerToComeForward() && pumpUntil([&] { return heard; });
    }

    TemporaryFolder m_runtime;
    TemporaryFolder m_place;
    const QString m_folder = m_place.path(QStringLiteral("deep/Corvane"));
};

TEST_F(ProfileLockTest, GivesTheFolderToTheFirstWhoThenHearsOfTheOthers)
{
    ProfileLock first(m_folder);
    EXPECT_EQ(first.claim(), Role::owner);
    for (int i = 0; i < 2; ++i) {
        ProfileLock later(m_folder);
        EXPECT_EQ(later.claim(), Role::latecomer);
        EXPECT_TRUE(hears(first, later));
    }
}

TEST_F(ProfileLockTest, PassesTheFolderOnAndLeavesNothingInIt)
{
    {
        ProfileLock first(m_folder);
        EXPECT_EQ(first.claim(), Role::owner);
    }
    ProfileLock next(m_folder);
    EXPECT_EQ(next.claim(), Role::owner);
    EXPECT_EQ(
        QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(ProfileLockTest, LetsCopiesOnDifferentFoldersRunSideBySide)
{
    ProfileLock here(m_folder);
    ProfileLock there(m_place.path(QStringLiteral("other")));
    EXPECT_EQ(here.claim(), Role::owner);
    EXPECT_EQ(there.claim(), Role::owner);
    ProfileLock later(m_place.path(QStringLiteral("other")));
    EXPECT_EQ(later.claim(), Role::latecomer);
    EXPECT_TRUE(hears(there, later));
}

TEST_F(ProfileLockTest, KnowsTheFolderByWhateverWayItIsReached)
{
    ProfileLock first(m_folder);
    EXPECT_EQ(first.claim(), Role::owner);
    ASSERT_TRUE(QFile::link(m_folder, m_place.path(QStringLiteral("link"))));
    ProfileLock later(m_place.path(QStringLiteral("deep/../link/")));
    EXPECT_EQ(later.claim(), Role::latecomer);
    EXPECT_TRUE(hears(first, later));
}

TEST_F(ProfileLockTest, KeepsNobodyOutOnceTheOwnerWasKilled)
{
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const auto owner = ::fork();
    ASSERT_GE(owner, 0);
    if (owner == 0) {
        ProfileLock lock(m_folder);
        const char role = lock.claim() == Role::owner ? 'o' : 'l';
        if (::write(pipe[1], &role, 1) == 1)
            ::pause();
        ::_exit(0);
    }
    char role = 0;
    ASSERT_EQ(::read(pipe[0], &role, 1), 1);
    EXPECT_EQ(role, 'o');
    {
        ProfileLock later(m_folder);
        EXPECT_EQ(later.claim(), Role::latecomer);
        EXPECT_TRUE(later.askOwnerToComeForward());
    }
    ::kill(owner, SIGKILL);
    ::waitpid(owner, nullptr, 0);

    ProfileLock next(m_folder);
    EXPECT_EQ(next.claim(), Role::owner);
    ProfileLock later(m_folder);
    EXPECT_EQ(later.claim(), Role::latecomer);
    EXPECT_TRUE(hears(next, later));
}

TEST_F(ProfileLockTest, HandsTheFolderToWhoeverComesWhileTheOwnerEnds)
{
    auto ending = std::make_unique<ProfileLock>(m_folder);
    EXPECT_EQ(ending->claim(), Role::owner);
    ProfileLock early(m_folder);
    EXPECT_EQ(early.claimOrCallOwner(0ms), Role::latecomer);
    ending->stopListening();
    ProfileLock later(m_folder);
    EXPECT_EQ(later.claimOrCallOwner(0ms), std::nullopt);
    {
        const std::jthread end([&] { ending.reset(); });
        EXPECT_EQ(later.claimOrCallOwner(1min), Role::owner);
    }
    EXPECT_EQ(early.claim(), Role::latecomer);
    EXPECT_TRUE(hears(later, early));
}

TEST_F(ProfileLockTest, OwnsAFolderThatCantBeLocked)
{
    writeFile(m_place.path(QStringLiteral("file")), "not a folder");
    ProfileLock lock(m_place.path(QStringLiteral("file/Corvane")));
    EXPECT_EQ(lock.claim(), Role::owner);
}

TEST_F(ProfileLockTest, TellsALatecomerWhenTheOwnerDoesNotListen)
{
    qputenv("XDG_RUNTIME_DIR", m_runtime.path(QString(200, u'x')).toUtf8());
    ProfileLock first(m_folder);
    EXPECT_EQ(first.claim(), Role::owner);
    ProfileLock later(m_folder);
    EXPECT_EQ(later.claim(), Role::latecomer);
    EXPECT_FALSE(later.askOwnerToComeForward());
}

} // namespace

} // namespace corvane
