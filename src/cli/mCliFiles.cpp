#include "cli/mCliFiles.h"

#include <cerrno>
#include <filesystem>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#include "base/SingleByteText.h"
#include "files/FileBuffer.h"
#include "files/mObjectFile.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

/// Why a file can't be read; empty when the system has no objection.
std::string ReasonAgainst(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (error) return error.message();
    if (fs::is_directory(status)) return std::generic_category().message(EISDIR);
    if (!fs::is_regular_file(status)) return "Not a regular file";
    std::ifstream file(path, std::ios::binary);
    return file ? std::string() : std::generic_category().message(errno);
}

/// Why the names in a folder can't be read; empty when they can.
std::string ObjectionToFolder(const std::string& path) {
    std::error_code error;
    const fs::directory_iterator names(path, error);
    return error ? path + ": " + error.message() : std::string();
}

void Append(Scene& scene, std::optional<std::vector<Brush>> brushes, const std::string& path) {
    if (!brushes) throw FileError(path, kInvalidFile);
    scene.brushes.insert(scene.brushes.end(), std::make_move_iterator(brushes->begin()),
                         std::make_move_iterator(brushes->end()));
}

std::string Listed(const std::vector<std::string>& endings) {
    std::string list;
    for (const std::string& ending : endings) list += (list.empty() ? "" : " or ") + ending;
    return list;
}

}  // namespace

std::string Printable(std::string name) {
    for (char& c : name) {
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = '?';
    }
    return name;
}

std::vector<std::uint8_t> ReadInput(const std::string& path, const std::string& message) {
    auto bytes = LoadFile(path);
    if (bytes) return std::move(*bytes);
    const std::string reason = ReasonAgainst(path);
    throw FileError(path, reason.empty() ? message : message + " (" + reason + ")");
}

void ReadObject(const std::string& path, TextureLibrary& library, Scene& scene) {
    const auto bytes = ReadInput(path, kInvalidFile);
    Append(scene, DecodeObjectAndNames(bytes, library, scene.brushCount()), path);
}

void ReadObjectAsShown(const std::string& path, const TextureLibrary& library, Scene& scene) {
    const auto bytes = ReadInput(path, kInvalidFile);
    Append(scene, DecodeObject(bytes, library, false, scene.brushCount()), path);
}

void CheckWritten(const std::string& path, bool written) {
    if (!written) throw FileError(path, kUnableToSave);
}

void WriteOutput(const std::string& path, std::span<const std::uint8_t> bytes) {
    CheckWritten(path, SaveFile(path, bytes));
}

bool EndsWith(const std::string& path, const std::string& ending) {
    return LowerCase(path).ends_with(ending);
}

void AddInput(CLI::App& command, std::string& path) {
    command.add_option("IN", path, "Object file to read (.kvobject)")->required()->type_name("");
}

std::string ObjectionToEnding(const std::string& path, const std::vector<std::string>& endings) {
    for (const std::string& ending : endings) {
        if (EndsWith(path, ending)) return {};
    }
    return path + " does not end in " + Listed(endings);
}

CLI::Option& AddAnyOutput(CLI::App& command, std::string& path, const std::string& kinds) {
    return *command
                .add_option("-o,--output", path,
                            "File to write (" + kinds + "); replaced as a whole")
                ->required()
                ->type_name("OUT");
}

void AddOutput(CLI::App& command, std::string& path, const std::vector<std::string>& endings) {
    const auto check = [endings](const std::string& given) {
        return ObjectionToEnding(given, endings);
    };
    AddAnyOutput(command, path, Listed(endings)).check(CLI::Validator(check, ""));
}

void AddTextureFolder(CLI::App& command, std::string& folder) {
    command
        .add_option("--textures", folder, "Folder of textures (default: the editor's ObjTextures)")
        ->type_name("DIR")
        ->check(CLI::Validator(ObjectionToFolder, ""));
}

}  // namespace korvane
