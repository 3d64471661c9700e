// The texture library: the table of textures that a face can use. Index i is at once entry i here,
// thumbnail i of the browser and OpenGL texture object i.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvane {

/// One texture of the library.
struct Material {
    std::string TextureName;  ///< shown to the user: the file name without its last extension
    std::string
        TextureFilename;  ///< file name with extension, no folder; empty for the placeholder
    std::int32_t TextureWidth = 0;   ///< pixels
    std::int32_t TextureHeight = 0;  ///< pixels
};

/// The table with its selected entry. It starts with the placeholder "NO Material" at index 0,
/// which every failed lookup falls back to, and only ever grows.
class TextureLibrary {
  public:
    /// A library holding only the placeholder, of the given size in pixels.
    explicit TextureLibrary(std::int32_t placeholderWidth = 64,
                            std::int32_t placeholderHeight = 64);

    /// Appends an entry; an empty display name becomes the file name up to its last ".". Returns
    /// its index.
    std::int32_t AddTexture(std::string filename, std::int32_t width, std::int32_t height,
                            std::string displayName = {});

    /// Number of entries, the placeholder included.
    std::int32_t ListCount() const { return static_cast<std::int32_t>(materials_.size()); }

    /// Index of the entry that new brushes and clicked faces get.
    std::int32_t Selected() const { return selected_; }

    /// Selects the entry; an index outside the table changes nothing.
    void SelectTexture(std::int32_t index);

    /// Display name; empty for an index outside the table.
    const std::string& TextureName(std::int32_t index) const { return Entry(index).TextureName; }

    /// File name; empty for an index outside the table and for the placeholder.
    const std::string& TextureFilename(std::int32_t index) const {
        return Entry(index).TextureFilename;
    }

    /// Width in pixels; that of the placeholder for an index outside the table.
    std::int32_t TextureWidth(std::int32_t index) const { return Sized(index).TextureWidth; }

    /// Height in pixels; that of the placeholder for an index outside the table.
    std::int32_t TextureHeight(std::int32_t index) const { return Sized(index).TextureHeight; }

    /// The entries with the text in their display name, ignoring letter case, in their order; all
    /// for an empty text.
    std::vector<std::int32_t> EntriesWith(std::string_view text) const;

    /// The first entry of that display name ignoring letter case; 0 when there is none.
    std::int32_t IDByName(std::string_view name) const;

    /// The first entry of that file name ignoring letter case; 0 when there is none.
    std::int32_t IDByFileName(std::string_view filename) const;

  private:
    bool Holds(std::int32_t index) const { return index >= 0 && index < ListCount(); }
    const Material& Entry(std::int32_t index) const;
    const Material& Sized(std::int32_t index) const { return materials_[Holds(index) ? index : 0]; }

    std::vector<Material> materials_;
    std::int32_t selected_ = 0;
    // Lower-cased names to the first index that bears them.
    std::unordered_map<std::string, std::int32_t> byName_;
    std::unordered_map<std::string, std::int32_t> byFileName_;
};

}  // namespace korvane
