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
using namespace Qt::StringLiterals;
using Claim = ProfileLock::Claim;

const Claim owned = ProfileLock::Owned{};
const Claim ownerAnswered = ProfileLock::OwnerAnswered{};

Claim ownerSilent(std::optional<qint64> processID)
{
    return ProfileLock::OwnerSilent{processID};
}

class ProfileLockTest : public testing::Test {
protected:
    /// What a copy that starts on `folder` gets while the owner's event loop runs, and how often that owner
    /// heard of it.
    static std::pair<Claim, int> startBeside(ProfileLock& owner, const QString& folder)
    {
        int heard = 0;
        // Ends with this call: the owner goes on hearing of others.
        const QObject listener;
        QObject::connect(&owner, &ProfileLock::cameAnother, &listener, [&] { ++heard; });
        std::atomic<bool> isOver = false;
        Claim claim;
        {
            const std::jthread later([&] {
                claim = ProfileLock(folder).claim(1min);
                isOver = true;
            });
            EXPECT_TRUE(pumpUntil([&] { return isOver.load(); }));
        }
        return {claim, heard};
    }

    /// A process that owns the folder and then hangs.
    [[nodiscard]] pid_t forkHangingOwner() const
    {
        std::array<int, 2> pipe{};
        EXPECT_EQ(::pipe(pipe.data()), 0);
        const auto owner = ::fork();
        if (owner == 0) {
            ProfileLock lock(m_folder);
            const char answer = lock.claim(0ms) == owned ? 'o' : 'l';
            if (::write(pipe[1], &answer, 1) == 1)
                ::pause();
            ::_exit(0);
        }
        char answer = 0;
        EXPECT_EQ(::read(pipe[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'o');
        ::close(pipe[0]);
        ::close(pipe[1]);
        return owner;
    }

    TemporaryFolder m_place;
    // Far longer than the path of a socket may be.
    const QString m_folder = m_place.path(QString(150, u'd') + u"/Corvane"_s);
};

TEST_F(ProfileLockTest, GivesTheFolderToTheFirstWhoThenHearsOfTheOthersWhateverWayTheyCome)
{
    ProfileLock first(m_folder);
    EXPECT_EQ(first.claim(0ms), owned);
    ASSERT_TRUE(QFile::link(m_folder, m_place.path(u"link"_s)));
    for (const auto& way : {m_folder, m_folder, m_place.path(u"other/../link/"_s)})
        EXPECT_EQ(startBeside(first, way), std::pair(ownerAnswered, 1));
}

TEST_F(ProfileLockTest, PassesTheFolderOnAndLeavesNothingInIt)
{
    EXPECT_EQ(ProfileLock(m_folder).claim(0ms), owned);
    EXPECT_EQ(QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot),
        QStringList());
    EXPECT_EQ(ProfileLock(m_folder).claim(0ms), owned);
}

TEST_F(ProfileLockTest, LetsCopiesOnDifferentFoldersRunSideBySide)
{
    const auto other = m_place.path(u"other"_s);
    ProfileLock here(m_folder);
    ProfileLock there(other);
    EXPECT_EQ(here.claim(0ms), owned);
    EXPECT_EQ(there.claim(0ms), owned);
    EXPECT_EQ(startBeside(there, other), std::pair(ownerAnswered, 1));
}

TEST_F(ProfileLockTest, NamesAnOwnerThatHangsAndReplacesItTheMomentItIsKilled)
{
    const auto owner = forkHangingOwner();
    ProfileLock next(m_folder);
    EXPECT_EQ(next.claim(0ms), ownerSilent(owner));
    {
        const std::jthread killer([owner] { ::kill(owner, SIGKILL); });
        EXPECT_EQ(next.claim(1min), owned);
    }
    ::waitpid(owner, nullptr, 0);
    EXPECT_EQ(startBeside(next, m_folder), std::pair(ownerAnswered, 1));
}

TEST_F(ProfileLockTest, HandsTheFolderToWhoeverComesWhileTheOwnerEnds)
{
    auto ending = std::make_unique<ProfileLock>(m_folder);
    EXPECT_EQ(ending->claim(0ms), owned);
    ending->stopListening();
    ProfileLock later(m_folder);
    EXPECT_EQ(later.claim(0ms), ownerSilent(std::nullopt));
    {
        const std::jthread end([&] { ending.reset(); });
        EXPECT_EQ(later.claim(1min), owned);
    }
    EXPECT_EQ(startBeside(later, m_folder), std::pair(ownerAnswered, 1));
}

TEST_F(ProfileLockTest, OwnsAFolderThatCantBeLockedAndSaysSo)
{
    writeFile(m_place.path(u"file"_s), "not a folder");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(ProfileLock(m_place.path(u"file/Corvane"_s)).claim(0ms), owned); }),
        "The folder of what is saved can't be opened; another copy would not be noticed.\n");
}

} // namespace

} // namespace corvane
