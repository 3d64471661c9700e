#include "editor/mFolders.h"

#include <filesystem>
#include <random>

#include "files/FileBuffer.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

fs::path ToPath(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

/// Rights tell too little: the disk may be read-only, and some users may do anything.
bool CanWriteIn(const std::string& folder) {
    const std::string probe = folder + "/.korvane-probe-" + std::to_string(std::random_device()());
    if (CreateFile(probe, {}) != Creation::Done) return false;
    DeleteFile(probe);
    return true;
}

/// The copy gets its name when it is complete, so that one that was interrupted is made again.
void CopyFolder(const fs::path& from, const fs::path& to) {
    const fs::path unfinished = to.native() + "-" + std::to_string(std::random_device()());
    std::error_code failed;
    fs::create_directory(unfinished, failed);  // fs::copy would copy a write protection too
    if (!failed) fs::copy(from, unfinished, failed);
    if (!failed) fs::rename(unfinished, to, failed);
    std::error_code ignored;
    if (failed) fs::remove_all(unfinished, ignored);
}

bool HasTextures(const std::string& folder) {
    std::error_code ignored;
    return fs::is_directory(ToPath(folder) / "ObjTextures", ignored);
}

/// The user's folder, which is created, or the other one if that can't be.
std::string UsersOr(const std::string& otherwise, const std::string& userFolder) {
    std::error_code ignored;
    fs::create_directories(ToPath(userFolder), ignored);
    return CanWriteIn(userFolder) ? userFolder : otherwise;
}

}  // namespace

ProgramFolders ChooseFolders(const std::string& programFolder, const std::string& installedFolder,
                             const std::string& userFolder) {
    const std::string shipped = ChooseShippedFolder(programFolder, installedFolder);
    if (shipped != programFolder) return {shipped, UsersOr(shipped, userFolder)};
    return {programFolder, ChooseDataFolder(programFolder, userFolder)};
}

std::string ChooseShippedFolder(const std::string& programFolder,
                                const std::string& installedFolder) {
    const bool installed = !HasTextures(programFolder) && HasTextures(installedFolder);
    return installed ? installedFolder : programFolder;
}

std::string ChooseDataFolder(const std::string& programFolder, const std::string& userFolder) {
    if (CanWriteIn(programFolder)) return programFolder;
    return UsersOr(programFolder, userFolder);
}

void MakeFolders(const Editor& editor) {
    const fs::path data = ToPath(editor.DataFolder());
    const fs::path shipped = ToPath(editor.programFolder) / "ObjTextures";
    const fs::path textures = data / "ObjTextures";
    std::error_code ignored;
    const bool missing = !fs::exists(textures, ignored);
    const bool copies = missing && fs::is_directory(shipped, ignored);
    if (copies) CopyFolder(shipped, textures);  // fails as a whole: the next start tries again
    if (missing && !copies) fs::create_directory(textures, ignored);
    EnsureCacheFolder(editor);
}

std::string CachePath(const Editor& editor, const std::string& name) {
    return editor.DataFolder() + "/ObjCache/" + name;
}

void EnsureCacheFolder(const Editor& editor) {
    std::error_code ignored;
    fs::create_directory(ToPath(editor.DataFolder()) / "ObjCache", ignored);
}

}  // namespace korvane
