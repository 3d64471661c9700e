// Constants of the object file's layout that its writer and reader share. All sizes in bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvane::object_file {

inline constexpr std::string_view kHeaderTag = "OBSF";
inline constexpr std::string_view kMaterialsTag = "MATS";
inline constexpr std::string_view kBrushesTag = "BRSH";
inline constexpr std::int32_t kVersion = 2;

inline constexpr std::size_t kChunkHeader = 16;  ///< tag, size, reserved, count
inline constexpr std::size_t kVertex = 12;
inline constexpr std::size_t kFaceFields = 72;      ///< up to the material index
inline constexpr std::size_t kSelected = 1;         ///< the byte that only snapshots have
inline constexpr std::size_t kExtensionLength = 4;  ///< stands behind every face and brush

inline constexpr std::int32_t kFaceExtension = 5;   ///< smooth, next extension length
inline constexpr std::int32_t kBrushExtension = 8;  ///< shape, next extension length

/// A brush without name, vertices, faces and extension.
inline constexpr std::size_t kSmallestBrush = 20;

/// Bits of a face's flags.
enum FaceFlag : std::int32_t { kInvisible = 1, kLocalCoords = 2, kFlipped = 4, kMirrored = 8 };

}  // namespace korvane::object_file
