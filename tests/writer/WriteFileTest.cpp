#include "tests/TemporaryFile.h"
#include "writer/WriteWholeFile.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#ifndef _WIN32
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{
namespace fs = std::filesystem;
using Kind = CWriteError::Kind;

std::string ReadAll(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t CountFiles(const fs::path& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

// The kind of the failure, which leaves as many files as there were.
Kind FailToWrite(const std::string& path, ExistingFile existing, const fs::path& folder)
{
    const std::size_t before = CountFiles(folder);
    try
    {
        WriteWholeFile(path.c_str(), "new", existing);
        ADD_FAILURE() << path;
    }
    catch (const CWriteError& error)
    {
        EXPECT_EQ(error.GetPath(), path);
        EXPECT_FALSE(error.GetReason().empty());
        EXPECT_EQ(CountFiles(folder), before) << path;
        return error.GetKind();
    }
    return {};
}

TEST(WriteWholeFile, MakesAndReplacesFiles)
{
    const TemporaryFile old("old.mat", "old");
    const fs::path folder = fs::path(old.GetPath()).parent_path();
    EXPECT_EQ(FailToWrite(old.GetPath(), ExistingFile::keep, folder), Kind::exists);
    EXPECT_EQ(ReadAll(old.GetPath()), "old");
    const std::string bytes("\0\r\n\xff new", 8);
    WriteWholeFile(old.GetPath().c_str(), bytes, ExistingFile::replace);
    EXPECT_EQ(ReadAll(old.GetPath()), bytes);

    for (const ExistingFile existing : {ExistingFile::keep, ExistingFile::replace})
    {
        const fs::path made = folder / u8"G\u00fc\u00dfe.mat";
        WriteWholeFile(reinterpret_cast<const char*>(made.u8string().c_str()), "new", existing);
        EXPECT_EQ(ReadAll(made), "new");
        fs::remove(made);
    }
    EXPECT_EQ(CountFiles(folder), 1u);
}

TEST(WriteWholeFile, FailsWithoutATrace)
{
    const TemporaryFile old("old.mat", "old");
    const fs::path folder = fs::path(old.GetPath()).parent_path();
    EXPECT_EQ(FailToWrite(folder.string(), ExistingFile::replace, folder), Kind::system);
    EXPECT_EQ(FailToWrite(folder.string(), ExistingFile::keep, folder), Kind::exists);
    EXPECT_EQ(FailToWrite(old.GetPath() + "/below", ExistingFile::replace, folder), Kind::system);
    EXPECT_EQ(FailToWrite((folder / "none" / "x.mat").string(), ExistingFile::keep, folder), Kind::system);
    EXPECT_EQ(FailToWrite((folder / std::string(300, 'x')).string(), ExistingFile::keep, folder),
              Kind::system);
    EXPECT_EQ(FailToWrite("", ExistingFile::replace, folder), Kind::system);
}

#ifndef _WIN32
TEST(WriteWholeFile, KeepsPermissionsAndTheMaskOfNewFiles)
{
    const TemporaryFile old("old.mat", "old");
    const std::string made = old.GetPath() + ".made";
    const mode_t before = umask(027);
    ASSERT_EQ(chmod(old.GetPath().c_str(), 0604), 0);
    WriteWholeFile(old.GetPath().c_str(), "new", ExistingFile::replace);
    WriteWholeFile(made.c_str(), "new", ExistingFile::keep);
    umask(before);
    struct stat found = {};
    ASSERT_EQ(stat(old.GetPath().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0604u);
    ASSERT_EQ(stat(made.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0640u);
    fs::remove(made);
}

TEST(WriteWholeFile, FollowsLinksAndReplacesOnlyFiles)
{
    const TemporaryFile old("old.mat", "old");
    const fs::path folder = fs::path(old.GetPath()).parent_path();
    const std::string link = old.GetPath() + ".link";
    fs::create_symlink("old.mat", link);
    WriteWholeFile(link.c_str(), "new", ExistingFile::replace);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(ReadAll(old.GetPath()), "new");
    EXPECT_EQ(FailToWrite(link, ExistingFile::keep, folder), Kind::exists);
    fs::remove(link);

    fs::create_symlink("nowhere.mat", link);
    EXPECT_EQ(FailToWrite(link, ExistingFile::keep, folder), Kind::exists);
    EXPECT_EQ(FailToWrite(link, ExistingFile::replace, folder), Kind::system);
    fs::remove(link);

    ASSERT_EQ(mkfifo(link.c_str(), 0600), 0);
    EXPECT_EQ(FailToWrite(link, ExistingFile::replace, folder), Kind::system);
    EXPECT_TRUE(fs::is_fifo(link));
    fs::remove(link);
}

// A disk that is full after a few bytes.
TEST(WriteWholeFile, KeepsTheOldFileWhereTheDiskIsFull)
{
    const TemporaryFile old("old.mat", "old");
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit full = {2, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    const Kind kind =
        FailToWrite(old.GetPath(), ExistingFile::replace, fs::path(old.GetPath()).parent_path());
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, ignored);
    EXPECT_EQ(kind, Kind::system);
    EXPECT_EQ(ReadAll(old.GetPath()), "old");
}
#endif
} // namespace
