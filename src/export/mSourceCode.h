// A scene as program source: a code template with the values of each visible face put in the place
// of its tags.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "export/CodeTemplate.h"
#include "scene/Scene.h"
#include "textures/core/TextureLibrary.h"

namespace korvane {

/// A group of tags as the reference lists them.
struct CodeTagGroup {
    const char* caption;  ///< "Vertices:"
    std::span<const char* const> tags;
    int columns;  ///< tags that belong side by side
};

/// The tag of the head: what made the text.
inline constexpr const char* kProgramTag = "%KVINFO%";

/// The tags of the body, in the order of the reference.
std::span<const CodeTagGroup> CodeTagGroups();

/// The text of a scene as the bytes of its file: Windows-1252, lines ended as in the template, each
/// section followed by CR LF. Numbers are rounded to 6 decimal places and carry a point whatever
/// the locale. Tags are matched ignoring letter case.
std::string SourceCodeText(const CodeTemplate& code, const Scene& scene,
                           const TextureLibrary& library);

/// Stores SourceCodeText as a file (UTF-8 path). False when it can't be written; the old file is
/// whole then.
bool SaveSourceCode(const std::string& path, const CodeTemplate& code, const Scene& scene,
                    const TextureLibrary& library);

/// What a template gives (UTF-8): head, body and foot joined, the body once with sample values. It
/// takes no more time for a large scene, which it does not look at.
std::string BuildPreview(const CodeTemplate& code);

}  // namespace korvane
