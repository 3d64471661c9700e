#include "textures/ui/mTextureListLayout.h"

#include <algorithm>

namespace korvane {

TextureListLayout LayOutTextureList(int innerWidth, std::int32_t count, std::int32_t selected,
                                    std::int32_t scroll) {
    TextureListLayout layout;
    layout.visible = std::max(innerWidth, 0) / kThumbnailPitch;
    layout.scrollEnabled = count - layout.visible >= 0;
    layout.scrollMaximum = layout.scrollEnabled ? count - layout.visible : 0;
    layout.first = std::clamp(scroll, 0, layout.scrollMaximum);
    layout.last = std::min(layout.first + layout.visible, count - 1);
    layout.highlightShown = selected >= layout.first && selected <= layout.last;
    if (layout.highlightShown) {
        layout.highlightLeft = ThumbnailLeft(layout, selected) - kHighlightReach;
    }
    return layout;
}

int ThumbnailLeft(const TextureListLayout& layout, std::int32_t index) {
    return kThumbnailLeft + (index - layout.first) * kThumbnailPitch;
}

std::int32_t ThumbnailAt(const TextureListLayout& layout, int x, int y) {
    if (x < kThumbnailLeft || y < kThumbnailTop || y >= kThumbnailTop + kThumbnailSide) return -1;
    const int along = x - kThumbnailLeft;
    const std::int32_t index = layout.first + along / kThumbnailPitch;
    return along % kThumbnailPitch < kThumbnailSide && index <= layout.last ? index : -1;
}

}  // namespace korvane
