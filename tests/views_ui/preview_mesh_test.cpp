// What a frame sends: nothing anew that is unchanged, nothing that cannot be seen, and a change of
// state only where it changes.
#include <gtest/gtest.h>

#include <algorithm>

#include "scene/mBrush.h"
#include "views/ui/mPreviewRuns.h"

namespace korvane {
namespace {

class PreviewMeshTest : public testing::Test {
  protected:
    Brush& Add(float x, std::int32_t texture) {
        const TextureSpace space{library_, 4};
        const auto index = CreateBrush(scene_, {x, 0, 0}, {x + 1, 1, 1}, 4, space);
        Brush& brush = scene_.brushes[static_cast<std::size_t>(index)];
        for (BrushFace& face : brush.faces) face.texture = texture;
        Touch(brush);
        return brush;
    }

    /// Runs of a view without limits from the eye.
    const std::vector<PreviewRun>& Gather(const Vec3& eye, bool showInvisible = true) {
        PreviewView view;
        view.eye = eye;
        view.projection[15] = 1;  // everything lands in the middle of the view volume
        view.showInvisible = showInvisible;
        UpdatePreviewMesh(mesh_, scene_);
        GatherPreviewRuns(scene_, mesh_, view, runs_);
        return runs_.runs;
    }

    TextureLibrary library_;
    Scene scene_;
    PreviewMesh mesh_;
    PreviewRuns runs_;
};

TEST_F(PreviewMeshTest, OnlyChangedBrushesAreSentAgain) {
    for (int i = 0; i < 5; ++i) Add(float(i) * 2, 0);
    EXPECT_EQ(UpdatePreviewMesh(mesh_, scene_).size(), 1U);
    EXPECT_EQ(mesh_.faces.size(), 5 * 12U);
    EXPECT_EQ(mesh_.corners.size(), 5 * 24U) << "four for each of six sides";
    EXPECT_TRUE(UpdatePreviewMesh(mesh_, scene_).empty());
    scene_.brushes[3].vertices[0].y = 7;
    Touch(scene_.brushes[3]);
    const auto changed = UpdatePreviewMesh(mesh_, scene_);
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_EQ(changed[0].first, mesh_.brushes[3].firstCorner);
    EXPECT_EQ(changed[0].count, mesh_.brushes[3].cornerRoom);
    EXPECT_EQ(mesh_.brushes[3].bounds.max.y, 7);
    for (const std::size_t i : {1U, 2U, 4U}) Touch(scene_.brushes[i]);
    EXPECT_EQ(UpdatePreviewMesh(mesh_, scene_).size(), 2U) << "neighbours go together";
}

TEST_F(PreviewMeshTest, FacesTurnedAwayAreLeftOut) {
    Add(0, 0);
    EXPECT_EQ(Gather({0.5F, 0.5F, 9})[0].count, 2U * 3) << "the front";
    EXPECT_EQ(Gather({5, 5, 9})[0].count, 6U * 3) << "right, top and front";
    EXPECT_TRUE(Gather({0.5F, 0.5F, 0.5F}).empty()) << "inside a box nothing is seen of it";
    EXPECT_GE(Gather({0.5F, 1.0005F, 9})[0].count, 4U * 3) << "seen on edge: left to the driver";
}

TEST_F(PreviewMeshTest, RunsChangeOnlyWithTheState) {
    for (const int texture : {1, 1, 2, 1}) Add(float(scene_.brushes.size()) * 2, texture);
    scene_.brushes[1].selected = true;
    for (BrushFace& face : scene_.brushes[1].faces) face.selected = face.polygonId == 1;
    Touch(scene_.brushes[1]);
    const auto& runs = Gather({-50, 50, 50});
    std::vector<std::pair<int, ColorState>> states;
    std::uint32_t corners = 0;
    for (const PreviewRun& run : runs) {
        states.push_back({run.texture, run.color});
        EXPECT_EQ(run.first, corners);
        corners += run.count;
    }
    using enum ColorState;
    const std::vector<std::pair<int, ColorState>> expected = {
        {1, Plain}, {1, SelectedFace}, {1, SelectedBrush}, {2, Plain}, {1, Plain}};
    EXPECT_EQ(states, expected);
    EXPECT_EQ(corners, runs_.corners.size());
}

TEST_F(PreviewMeshTest, SceneOrderStaysInAPickAndWhereNothingCanHide) {
    for (int i = 0; i < 60; ++i) Add(float(i * 37 % 60) * 2, 0);
    for (const bool picking : {false, true}) {
        PreviewView view;
        view.projection[15] = 1;
        view.PickRendering = picking;
        UpdatePreviewMesh(mesh_, scene_);
        GatherPreviewRuns(scene_, mesh_, view, runs_);
        const auto& items = runs_.brushes.Items();
        EXPECT_EQ(items.size(), 60U);
        EXPECT_TRUE(std::ranges::is_sorted(items, {}, &DrawItem::brush)) << picking;
    }
}

TEST_F(PreviewMeshTest, ABrushBeyondAnySideOfTheViewIsLeftOut) {
    const TextureSpace space{library_, 4};
    for (const Vec3& at : {Vec3{0, 0, 0}, Vec3{3, 0, 0}, Vec3{-3, 0, 0}, Vec3{0, 3, 0},
                           Vec3{0, -3, 0}, Vec3{0, 0, 3}, Vec3{0, 0, -3}, Vec3{-1.5F, 0, 0}}) {
        CreateBrush(scene_, at, {at.x + 0.5F, at.y + 0.5F, at.z + 0.5F}, 4, space);
    }
    PreviewView view;
    view.eye = {50, 50, 50};
    view.projection = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};  // sees -1..1 of each axis
    UpdatePreviewMesh(mesh_, scene_);
    GatherPreviewRuns(scene_, mesh_, view, runs_);
    EXPECT_EQ(runs_.corners.size(), 2 * 6U * 3) << "right, top and front of two";
    for (const std::uint32_t corner : runs_.corners) {
        EXPECT_TRUE(corner < mesh_.brushes[1].firstCorner || corner >= mesh_.brushes[7].firstCorner)
            << "the first, and the last, which touches the edge";
    }
}

}  // namespace
}  // namespace korvane
