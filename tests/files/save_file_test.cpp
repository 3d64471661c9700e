// Files on the disk: stored whole or not at all.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "files/FileBuffer.h"
#include "support/TempFolder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;
using test::Bytes;
using test::FileBytes;
using test::TempFolder;
using test::WriteFileBytes;

const Bytes kOld = {'o', 'l', 'd', ' ', 'f', 'i', 'l', 'e'};
const Bytes kNew = {'n', 'e', 'w'};

unsigned ModeOf(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

TEST(SaveFileTest, StoresExactlyTheBytes) {
    const TempFolder folder;
    const std::string path = folder.Path("T\u00FCrme \u20AC.kvobject");
    WriteFileBytes(path, kOld);
    EXPECT_TRUE(SaveFile(path, kNew));
    EXPECT_EQ(FileBytes(path), kNew) << "nothing of the longer old file is left";
    EXPECT_TRUE(SaveFile(path, {}));
    EXPECT_EQ(LoadFile(path), Bytes{});
    const Bytes large(3'000'000, 7);
    EXPECT_TRUE(SaveFile(path, large));
    EXPECT_EQ(LoadFile(path), large);
    EXPECT_EQ(folder.EntryCount(), 1);
}

TEST(SaveFileTest, ModesAreThoseTheUserExpects) {
    const TempFolder folder;
    const mode_t oldMask = umask(027);
    EXPECT_TRUE(SaveFile(folder.Path("new"), kNew));
    umask(oldMask);
    EXPECT_EQ(ModeOf(folder.Path("new")), 0640U);
    chmod(folder.Path("new").c_str(), 0604);
    EXPECT_TRUE(SaveFile(folder.Path("new"), kOld));
    EXPECT_EQ(ModeOf(folder.Path("new")), 0604U);
}

TEST(SaveFileTest, LinksStayAndTheirTargetIsReplaced) {
    const TempFolder folder;
    fs::create_directory(folder.Path("far"));
    WriteFileBytes(folder.Path("far/file"), kOld);
    fs::create_symlink("far/file", folder.Path("link"));
    fs::create_symlink(folder.Path("link"), folder.Path("link to link"));
    EXPECT_TRUE(SaveFile(folder.Path("link to link"), kNew));
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_TRUE(fs::is_symlink(folder.Path("link to link")));
    EXPECT_EQ(FileBytes(folder.Path("far/file")), kNew);

    fs::create_symlink("far/nothing yet", folder.Path("dangling"));
    EXPECT_TRUE(SaveFile(folder.Path("dangling"), kNew));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder.Path("far/nothing yet"))));

    fs::create_symlink("circle", folder.Path("circle"));
    EXPECT_FALSE(SaveFile(folder.Path("circle"), kNew));
}

TEST(SaveFileTest, RefusesWhatIsNoFileToBeReplaced) {
    const TempFolder folder;
    WriteFileBytes(folder.Path("file"), kOld);
    mkfifo(folder.Path("pipe").c_str(), 0600);
    for (const std::string& path : {std::string(), folder.Path(), folder.Path("missing/file"),
                                    folder.Path("missing/"), folder.Path("file/below a file"),
                                    folder.Path("pipe"), folder.Path(std::string(300, 'x'))}) {
        EXPECT_FALSE(SaveFile(path, kNew)) << path;
    }
    EXPECT_EQ(folder.EntryCount(), 2);
    EXPECT_EQ(FileBytes(folder.Path("file")), kOld);
}

/// Runs a check without the rights of the superuser and returns its result.
template <typename Check>
bool AsOrdinaryUser(Check check) {
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t kNobody = 65534;
        const bool ordinary = geteuid() != 0 || setresuid(kNobody, kNobody, kNobody) == 0;
        _exit(ordinary && check() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(SaveFileTest, RefusesFilesAndFoldersWithoutWritePermission) {
    const TempFolder folder;
    const std::string path = folder.Path("file");
    WriteFileBytes(path, kOld);
    chmod(folder.Path().c_str(), 0777);
    chmod(path.c_str(), 0444);
    EXPECT_TRUE(AsOrdinaryUser([&] { return !SaveFile(path, kNew); }));
    EXPECT_TRUE(AsOrdinaryUser([&] { return SaveFile(folder.Path("beside"), kNew); }));
    chmod(path.c_str(), 0666);
    chmod(folder.Path().c_str(), 0555);
    EXPECT_TRUE(AsOrdinaryUser([&] { return !SaveFile(path, kNew); }));
    chmod(folder.Path().c_str(), 0700);
    EXPECT_EQ(FileBytes(path), kOld);
    EXPECT_EQ(folder.EntryCount(), 2);
}

TEST(CreateFileTest, NeverTouchesWhatIsThere) {
    const TempFolder folder;
    EXPECT_EQ(CreateFile(folder.Path("new"), kNew), Creation::Done);
    EXPECT_EQ(FileBytes(folder.Path("new")), kNew);
    EXPECT_EQ(CreateFile(folder.Path("new"), kOld), Creation::Exists);
    EXPECT_EQ(FileBytes(folder.Path("new")), kNew);
    EXPECT_EQ(symlink("nowhere", folder.Path("link").c_str()), 0);
    EXPECT_EQ(CreateFile(folder.Path("link"), kNew), Creation::Exists);
    EXPECT_EQ(CreateFile(folder.Path("missing/file"), kNew), Creation::Failed);
    EXPECT_EQ(folder.EntryCount(), 2);
}

TEST(LoadFileTest, RefusesWhatIsNoReadableFile) {
    const TempFolder folder;
    mkfifo(folder.Path("pipe").c_str(), 0600);
    for (const std::string& path : {std::string(), folder.Path(), folder.Path("missing"),
                                    folder.Path("pipe"), std::string("/dev/zero")}) {
        EXPECT_EQ(LoadFile(path), std::nullopt) << path;
    }
    WriteFileBytes(folder.Path("long"), kOld);
    ASSERT_EQ(truncate(folder.Path("long").c_str(), off_t{1} << 31), 0);
    EXPECT_EQ(LoadFile(folder.Path("long")), std::nullopt)
        << "one byte longer than a cursor reaches";
}

}  // namespace
}  // namespace korvane
