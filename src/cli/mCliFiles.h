// What the sub-commands share: reading objects, writing results, and the options for both.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

inline constexpr const char* kInvalidFile = "Error: Invalid Korvane File Format!";
inline constexpr const char* kUnableToSave = "Error: Unable to save file!";

/// A name for the eyes: what would control a terminal or begin a line becomes a question mark.
std::string Printable(std::string name);

/// A file that is bad or can't be written: the run ends with exit status 1 and this line.
struct FileError : std::runtime_error {
    FileError(const std::string& path, const std::string& message)
        : std::runtime_error(Printable(path) + ": " + message) {}
};

/// Appends the brushes of an object file to the scene. Texture names that the library lacks are
/// added to it, so that none is lost. Throws FileError, with the scene as it was.
void ReadObject(const std::string& path, TextureLibrary& library, Scene& scene);

/// The same where a texture that the library lacks becomes the placeholder, as in the editor.
void ReadObjectAsShown(const std::string& path, const TextureLibrary& library, Scene& scene);

/// The whole file. Throws FileError with the message, and the system's reason where it has one.
std::vector<std::uint8_t> ReadInput(const std::string& path, const std::string& message);

/// Replaces the file as a whole. Throws FileError.
void WriteOutput(const std::string& path, std::span<const std::uint8_t> bytes);

/// Throws the FileError of a file that could not be written unless `written`.
void CheckWritten(const std::string& path, bool written);

/// Adds the argument IN.
void AddInput(CLI::App& command, std::string& path);

/// Adds the option -o, whose name must end in one of the endings (with their points, lower case).
void AddOutput(CLI::App& command, std::string& path, const std::vector<std::string>& endings);

/// Adds the option -o with any name; `kinds` tells in the help what it may be.
CLI::Option& AddAnyOutput(CLI::App& command, std::string& path, const std::string& kinds);

/// What is wrong with a path that must end in one of the endings; empty if nothing is.
std::string ObjectionToEnding(const std::string& path, const std::vector<std::string>& endings);

/// Adds the option --textures. The folder is empty unless it is given.
void AddTextureFolder(CLI::App& command, std::string& folder);

/// Whether the path ends so, ignoring letter case.
bool EndsWith(const std::string& path, const std::string& ending);

}  // namespace korvane
