#include "Foundation/JsonFile.h"
#include "Foundation/DataFolder.h"
#include "Foundation/JsonReader.h"
#include "support/Files.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFileInfo>

#include <csignal>
#include <random>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

class JsonFileTest : public testing::Test {
protected:
    static JsonFile fileAt(
        const QString& path, JsonFile::MovedAside wording = JsonFile::MovedAside::namesTheCopy)
    {
        return JsonFile(path, u"LabelStore"_s, wording);
    }

    static void save(const JsonFile& file, const QString& content)
    {
        file.save([&](JsonWriter& writer) {
            writer.beginArray();
            writer.string(content);
            writer.endArray();
        });
    }

    /// Loads, and stores what the file holds only once all of it was read.
    JsonFile::Loaded load(const JsonFile& file)
    {
        return file.load([this](const QByteArray& bytes) {
            QStringList read;
            readJsonArray(bytes, [&](const JsonValue& value) { read.append(value.string()); });
            m_content = read;
        });
    }

    TemporaryFolder m_folder;
    const QString m_path = m_folder.path(u"labels.json"_s);
    const QString m_corruptPath = m_path + u".corrupt"_s;
    const JsonFile m_file = fileAt(m_path);
    QStringList m_content;
};

TEST_F(JsonFileTest, LoadsWhatItSavedAndMakesTheFoldersForIt)
{
    const auto file = fileAt(m_folder.path(u"a/b/labels.json"_s));
    EXPECT_EQ(printedBy([&] {
        save(file, u"old"_s);
        save(file, u"Cam 1"_s);
        EXPECT_EQ(load(file), JsonFile::Loaded::complete);
    }),
        "");
    EXPECT_EQ(m_content, QStringList(u"Cam 1"_s));
    EXPECT_EQ(readFile(file.path()), "[\"Cam 1\"]");
}

TEST_F(JsonFileTest, MovesABadFileAsideInPlaceOfAnEarlierOne)
{
    writeFile(m_corruptPath, "an earlier one");
    writeFile(m_path, R"(["a")");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(load(m_file), JsonFile::Loaded::movedAside); }),
        "LabelStore: unreadable labels.json moved to labels.json.corrupt — not JSON at byte 5\n");
    EXPECT_EQ(m_folder.names(), QStringList(u"labels.json.corrupt"_s));
    EXPECT_EQ(readFile(m_corruptPath), R"(["a")");
    EXPECT_EQ(m_content, QStringList());
}

TEST_F(JsonFileTest, MovesAsideWhateverElseStandsInTheFilesPlace)
{
    const auto line =
        "LabelStore: unreadable labels.json moved to labels.json.corrupt — not a regular file\n";
    ASSERT_TRUE(QDir().mkdir(m_path));
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(load(m_file), JsonFile::Loaded::movedAside); }), line);
    EXPECT_TRUE(QFileInfo(m_corruptPath).isDir());
    // Reading a pipe that nobody writes to would never end.
    ASSERT_EQ(::mkfifo(qPrintable(m_path), 0600), 0);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(load(m_file), JsonFile::Loaded::movedAside); }), line);
    EXPECT_EQ(m_folder.names(), QStringList(u"labels.json.corrupt"_s));
}

TEST_F(JsonFileTest, PrintsItsLineAlsoWhenTheBadFileCantBeMovedAndReplacesItAtTheNextSave)
{
    ASSERT_TRUE(QDir().mkpath(m_corruptPath + u"/holding something"_s));
    writeFile(m_path, "bad");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(load(m_file), JsonFile::Loaded::movedAside); }),
        "LabelStore: unreadable labels.json moved to labels.json.corrupt — not JSON at byte 1\n");
    EXPECT_EQ(readFile(m_path), "bad");
    save(m_file, u"new"_s);
    EXPECT_EQ(readFile(m_path), "[\"new\"]");
}

TEST_F(JsonFileTest, SurvivesASaveIntoAPlaceThatCantBe)
{
    writeFile(m_folder.path(u"file"_s), "not a folder");
    const auto below = fileAt(m_folder.path(u"file/labels.json"_s));
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(load(below), JsonFile::Loaded::missing); }), "");
    EXPECT_EQ(printedBy([&] { save(below, u"x"_s); }), "LabelStore: save failed — Not a directory\n");

    ASSERT_TRUE(QDir().mkdir(m_path));
    EXPECT_EQ(printedBy([&] { save(m_file, u"x"_s); }), "LabelStore: save failed — Is a directory\n");
    EXPECT_EQ(m_folder.names(), (QStringList{u"file"_s, u"labels.json"_s}));
}

/// No file may grow beyond this many bytes while it lives; what a full disk looks like to the writer.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit m_before{};
};

TEST_F(JsonFileTest, KeepsTheOldFileWhenTheDiskIsFull)
{
    save(m_file, u"old"_s);
    const auto printed = printedBy([&] {
        const FileSizeLimit limit(5000);
        save(m_file, QString(20'000, u'x'));
    });
    EXPECT_EQ(printed, "LabelStore: save failed — File too large\n");
    EXPECT_EQ(readFile(m_path), "[\"old\"]");
    EXPECT_EQ(m_folder.names(), QStringList(u"labels.json"_s));
}

TEST_F(JsonFileTest, KeepsTheOldFileWhenTheContentCantBeWritten)
{
    save(m_file, u"old"_s);
    const auto printed = printedBy([&] { m_file.save([](JsonWriter&) { throw std::runtime_error("no"); }); });
    EXPECT_EQ(printed, "LabelStore: save failed — no\n");
    EXPECT_EQ(readFile(m_path), "[\"old\"]");
}

TEST_F(JsonFileTest, KeepsALinkAndWritesWhereItPoints)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"elsewhere"_s));
    const auto real = m_folder.path(u"elsewhere/real.json"_s);
    // A chain, the second link relative, and nothing yet at its end.
    ASSERT_TRUE(QFile::link(u"second"_s, m_path));
    ASSERT_TRUE(QFile::link(u"elsewhere/real.json"_s, m_folder.path(u"second"_s)));
    EXPECT_EQ(load(m_file), JsonFile::Loaded::missing);
    save(m_file, u"one"_s);
    save(m_file, u"two"_s);
    EXPECT_TRUE(QFileInfo(m_path).isSymLink());
    EXPECT_EQ(readFile(real), "[\"two\"]");
    EXPECT_EQ(load(m_file), JsonFile::Loaded::complete);
}

TEST_F(JsonFileTest, KeepsPermissionsAndMakesNewFilesPrivate)
{
    constexpr auto mode = [](const QString& path) {
        struct stat status { };
        return ::stat(qPrintable(path), &status) == 0 ? status.st_mode & 07777U : 0U;
    };
    save(m_file, u"new"_s);
    EXPECT_EQ(mode(m_path), 0600U);
    ASSERT_EQ(::chmod(qPrintable(m_path), 0664), 0);
    save(m_file, u"newer"_s);
    EXPECT_EQ(mode(m_path), 0664U);
}

/// Saves by turns in a process of its own, telling of each save by one byte, until it is killed after `saves`
/// of them.
void killWhileSaving(const JsonFile& file, const std::array<QString, 2>& contents, int saves)
{
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const auto child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (std::size_t i = 0; true; ++i) {
            file.save([&](JsonWriter& writer) { writer.string(contents[i % 2]); });
            if (::write(pipe[1], "s", 1) != 1)
                ::_exit(1);
        }
    }
    char byte = 0;
    for (int i = 0; i < saves; ++i)
        ASSERT_EQ(::read(pipe[0], &byte, 1), 1);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST_F(JsonFileTest, LeavesTheOldOrTheNewContentWholeWheneverItIsKilled)
{
    const std::array contents{QString(20'000, u'o'), QString(30'000, u'n')};
    std::mt19937 random(1);
    int leftBehind = 0;
    for (int round = 0; round < 200; ++round) {
        killWhileSaving(m_file, contents, std::uniform_int_distribution(1, 6)(random));
        const auto text = QString::fromUtf8(readFile(m_path)).remove(u'"');
        ASSERT_TRUE(text == contents[0] || text == contents[1]) << "round " << round << ": " << text.size();
        leftBehind += m_folder.names().size() > 1;
        ASSERT_EQ(m_file.load([](const QByteArray&) {}), JsonFile::Loaded::complete);
        ASSERT_EQ(m_folder.names(), QStringList(u"labels.json"_s));
    }
    EXPECT_GT(leftBehind, 0) << "no kill ever came in the middle of a save";
}

/// Sets one variable of the environment for as long as it lives.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const QByteArray& value) : m_name(name), m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentVariable() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }

private:
    const char* m_name;
    const QByteArray m_before;
};

TEST(DataFolder, IsTheUsersOwnAndTheTemporaryFolderWhereThatCantBeHad)
{
    const TemporaryFolder folder;
    writeFile(folder.path(u"file"_s), "not a folder");
    {
        const EnvironmentVariable home("XDG_DATA_HOME", folder.path(u"a/b"_s).toUtf8());
        EXPECT_EQ(dataFolder(), folder.path(u"a/b/Corvane"_s));
        EXPECT_TRUE(QFileInfo(folder.path(u"a/b"_s)).isDir());
    }
    const EnvironmentVariable home("XDG_DATA_HOME", folder.path(u"file/b"_s).toUtf8());
    EXPECT_EQ(dataFolder(), QDir::tempPath() + u"/Corvane"_s);
}

} // namespace

} // namespace corvane
