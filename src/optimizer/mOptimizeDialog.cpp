#include "optimizer/mOptimizeDialog.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Rounding.h"

namespace korvane {
namespace {

/// 0:07, 12:34, 1:02:03.
std::string ClockText(double seconds) {
    const std::int32_t whole = RoundToInt(seconds);
    const std::int32_t minutes = whole / 60;
    const std::string tail = ":" + FormatPadded(whole % 60, 2);
    if (minutes < 60) return std::to_string(minutes) + tail;
    return std::to_string(minutes / 60) + ":" + FormatPadded(minutes % 60, 2) + tail;
}

std::string Polygons(std::int32_t count) {
    return FormatGrouped(count) + (count == 1 ? " polygon" : " polygons");
}

}  // namespace

OptimizeOptions OptionsOf(const OptimizeChoices& choices, int viewportWidth, int viewportHeight) {
    return {kDetailSteps.at(choices.detail), choices.zAxisPass, choices.polarPasses, viewportWidth,
            viewportHeight};
}

std::string ProgressText(const OptimizeProgress& progress) {
    return "Optimizing Brush: " + FormatGrouped(progress.brush + 1) + " of " +
           FormatGrouped(progress.brushCount);
}

int ProgressPercent(const OptimizeProgress& progress) {
    if (progress.brushCount < 2) return 0;
    return FloorToInt(double{100} * progress.brush / (progress.brushCount - 1));
}

std::string TimeText(double elapsedSeconds, const OptimizeProgress& progress) {
    constexpr double kFirstGuess = 0.5;  // seconds; before that a guess jumps about
    const std::string text = "Elapsed: " + ClockText(elapsedSeconds);
    const double share =
        (progress.brush + progress.shareOfBrush) / std::max(progress.brushCount, 1);
    if (elapsedSeconds < kFirstGuess || !(share > 0 && share < 1)) return text;
    return text + "   Remaining: about " + ClockText(elapsedSeconds * (1 - share) / share);
}

std::string ResultText(const OptimizeResult& result) {
    return Polygons(result.hidden) + " hidden, " + Polygons(result.shown) + " made visible again";
}

Message FinishedMessage(const OptimizeResult& result) {
    return {"The object is optimized:\n" + ResultText(result) + ".", "Notice!",
            MessageIcon::Information, MessageButtons::Ok};
}

void CloseOptimize(Editor& editor) {
    editor.SceneModified = true;
    RefreshAll(editor);
}

}  // namespace korvane
