#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

/// In memory where the system has such a place: a test that saves hundreds of times waits for no disk.
QString nameTemplate()
{
    const auto memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/corvane-tests-XXXXXX"_s;
}

} // namespace

TemporaryFolder::TemporaryFolder() : m_folder(nameTemplate()) { }

QStringList TemporaryFolder::names() const
{
    return QDir(path()).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::string printedBy(const std::function<void()>& action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}

} // namespace corvane
