// Where the texture browser puts its thumbnails, as arithmetic over numbers.
#pragma once

#include <cstdint>

namespace korvane {

inline constexpr int kThumbnailSide = 64;   ///< pixels, as are the next ones
inline constexpr int kThumbnailPitch = 70;  ///< from one thumbnail to the next
inline constexpr int kThumbnailLeft = 3;    ///< x of the first
inline constexpr int kThumbnailTop = 4;
inline constexpr int kHighlightReach = 2;  ///< of the frame around the selected thumbnail

/// What is seen at a scroll value. With nothing to show, last < first.
struct TextureListLayout {
    std::int32_t visible = 0;  ///< thumbnails that fit wholly; one more may be seen in part
    bool scrollEnabled = false;
    std::int32_t scrollMaximum = 0;
    std::int32_t first = 0;
    std::int32_t last = -1;
    bool highlightShown = false;
    std::int32_t highlightLeft = 0;  ///< x of the frame
};

/// Lays out `count` thumbnails in `innerWidth` pixels at the scroll value, which is taken into the
/// range it may have.
TextureListLayout LayOutTextureList(int innerWidth, std::int32_t count, std::int32_t selected,
                                    std::int32_t scroll);

/// x of a shown thumbnail.
int ThumbnailLeft(const TextureListLayout& layout, std::int32_t index);

/// The thumbnail under a point, or -1.
std::int32_t ThumbnailAt(const TextureListLayout& layout, int x, int y);

}  // namespace korvane
