#include "editor/mWindowPlace.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr float kLeastWidth = 640 * kTwipsPerPixel;
constexpr float kLeastHeight = 480 * kTwipsPerPixel;
constexpr float kTitleHeight = 30 * kTwipsPerPixel;
constexpr float kTitleReach =
    100 * kTwipsPerPixel;  // of a title bar that the mouse can still grasp

struct Area {
    float left, top, right, bottom;
};

Area ToArea(const TwipRect& rect) {
    const auto left = static_cast<float>(rect.left), top = static_cast<float>(rect.top);
    return {left, top, left + static_cast<float>(rect.width),
            top + static_cast<float>(rect.height)};
}

Area Around(std::span<const TwipRect> screens) {
    Area all = ToArea(screens.front());
    for (const TwipRect& screen : screens) {
        const Area area = ToArea(screen);
        all = {std::min(all.left, area.left), std::min(all.top, area.top),
               std::max(all.right, area.right), std::max(all.bottom, area.bottom)};
    }
    return all;
}

bool TitleShows(const WindowPlace& place, const Area& screen) {
    const float shown =
        std::min(place.left + place.width, screen.right) - std::max(place.left, screen.left);
    return shown >= kTitleReach && place.top >= screen.top - kTitleHeight &&
           place.top + kTitleHeight <= screen.bottom;
}

/// Where a length begins so that it ends before `end`, if there is room for it.
float FitInto(float begin, float length, float start, float end) {
    return std::max(start, std::min(begin, end - length));
}

}  // namespace

WindowStart StartOfWindow(const Settings& settings) {
    if (!settings.rememberWindow) return WindowStart::Default;
    switch (settings.window.state) {
        case 0:
            return WindowStart::Normal;
        case 1:
            return WindowStart::MinimizedBefore;
        case 2:
            return WindowStart::Maximized;
        default:
            return WindowStart::Default;
    }
}

const char* LogWord(WindowStart start) {
    switch (start) {
        case WindowStart::Normal:
            return "NORMAL";
        case WindowStart::Maximized:
            return "MAXIMIZED";
        case WindowStart::MinimizedBefore:
            return "MINIMIZED -> OVERRIDE_TO: DEFAULT";
        case WindowStart::Default:
            break;
    }
    return "DEFAULT";
}

WindowPlace ClampToScreens(WindowPlace place, std::span<const TwipRect> screens) {
    const Area all = Around(screens);
    place.left = std::max(place.left, 0.0F);
    place.top = std::max(place.top, 0.0F);
    place.width = std::min(std::max(place.width, kLeastWidth), all.right - all.left);
    place.height = std::min(std::max(place.height, kLeastHeight), all.bottom - all.top);
    const bool shows = std::ranges::any_of(
        screens, [&](const TwipRect& screen) { return TitleShows(place, ToArea(screen)); });
    if (shows) return place;
    const Area main = ToArea(screens.front());
    place.left = FitInto(place.left, place.width, main.left, main.right);
    place.top = FitInto(place.top, place.height, main.top, main.bottom);
    return place;
}

}  // namespace korvane
