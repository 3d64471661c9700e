#include "views/ui/mVisibleBrushes.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <span>

#include "scene/mConvex.h"

namespace korvane {
namespace {

/// The view volume as six planes; a point is inside where all are positive.
class Frustum {
  public:
    explicit Frustum(const std::array<double, 16>& m) {
        for (int i = 0; i < 6; ++i) {
            const int row = i / 2;
            const double sign = i % 2 == 0 ? 1 : -1;
            for (int column = 0; column < 4; ++column) {
                planes_[i][column] = m[column * 4 + 3] + sign * m[column * 4 + row];
            }
        }
    }

    /// Whether the box lies wholly outside one plane, by more than rounding can explain.
    bool Excludes(const BoundingBox& box) const {
        const auto& [min, max] = box;
        return std::ranges::any_of(planes_, [&](const std::array<double, 4>& p) {
            const double x = p[0] * (p[0] > 0 ? max.x : min.x);
            const double y = p[1] * (p[1] > 0 ? max.y : min.y);
            const double z = p[2] * (p[2] > 0 ? max.z : min.z);
            const double size = std::abs(x) + std::abs(y) + std::abs(z) + std::abs(p[3]);
            return x + y + z + p[3] < -1e-5 * size;
        });
    }

  private:
    std::array<std::array<double, 4>, 6> planes_{};
};

/// Depth of the nearest point of a box: clip coordinate w.
float NearestDepth(const std::array<double, 16>& m, const BoundingBox& box) {
    const auto& [min, max] = box;
    return float(m[3] * (m[3] < 0 ? max.x : min.x) + m[7] * (m[7] < 0 ? max.y : min.y) +
                 m[11] * (m[11] < 0 ? max.z : min.z) + m[15]);
}

/// Whether the brush surely hides what is behind its front faces.
bool HidesOthers(PreviewBrush& built, const Brush& brush, bool showInvisible) {
    if (built.hasInvisible && !showInvisible) return false;
    if (built.solid == Solid::NotAsked) built.solid = IsConvexSolid(brush) ? Solid::Yes : Solid::No;
    return built.solid == Solid::Yes;
}

}  // namespace

/// The work of one frame.
class VisibleBrushes::Search {
  public:
    Search(VisibleBrushes& own, const Scene& scene, PreviewMesh& mesh, const PreviewView& view)
        : own_(own), scene_(scene), mesh_(mesh), view_(view), frustum_(view.projection) {
        own_.items_.clear();
        own_.waiting_.clear();
    }

    /// All brushes in the view, in scene order.
    void FindAll() {
        for (const std::uint32_t b : mesh_.loose) {
            const BoundingBox& bounds = mesh_.brushes[b].bounds;
            if (!frustum_.Excludes(bounds)) AddItem({bounds, b}, 0, Everywhere());
        }
        for (const auto& root : Root()) AddAll(root);
        std::ranges::sort(own_.items_, {}, &DrawItem::brush);
    }

    /// The brushes that no nearer ones hide. False where that cannot be told.
    bool FindVisible() {
        const auto isInView = [&](std::uint32_t b) {
            return !frustum_.Excludes(mesh_.brushes[b].bounds);
        };
        if (std::ranges::any_of(mesh_.loose, isInView)) return false;
        if (!own_.occlusion_.Start(view_.projection, view_.width, view_.height)) return false;
        for (const auto& root : Root()) Await(root.bounds, &root);
        while (!own_.waiting_.empty()) {
            std::ranges::pop_heap(own_.waiting_, std::ranges::greater(), &Waiting::depth);
            const Waiting next = own_.waiting_.back();
            own_.waiting_.pop_back();
            if (next.node == nullptr) {
                LookAt(*next.leaf, next.depth);
            } else if (!IsHidden(*next.node)) {
                AwaitContents(*next.node);
            }
        }
        return true;
    }

  private:
    std::span<const PreviewTree::Node> Root() const { return mesh_.tree.Root(); }

    PixelRect Everywhere() const { return {0, 0, view_.width, view_.height}; }

    /// Whether the node is hidden as a whole. Asked only of those that hold brushes: larger ones
    /// are seldom hidden, and cover many cells.
    bool IsHidden(const PreviewTree::Node& node) const {
        return node.count != 0 && own_.occlusion_.Hides(node.bounds);
    }

    /// Adds the brushes of the node that are in the view.
    void AddAll(const PreviewTree::Node& node) {
        if (frustum_.Excludes(node.bounds)) return;
        for (const auto& child : mesh_.tree.Children(node)) AddAll(child);
        for (const PreviewTree::Leaf& leaf : mesh_.tree.Leaves(node)) {
            if (!frustum_.Excludes(leaf.bounds)) AddItem(leaf, 0, Everywhere());
        }
    }

    /// Has what lies in the node looked at, nearest first, as far as it is in the view.
    void AwaitContents(const PreviewTree::Node& node) {
        for (const auto& child : mesh_.tree.Children(node)) Await(child.bounds, &child);
        for (const PreviewTree::Leaf& leaf : mesh_.tree.Leaves(node)) {
            Await(leaf.bounds, nullptr, &leaf);
        }
    }

    void Await(const BoundingBox& bounds, const PreviewTree::Node* node,
               const PreviewTree::Leaf* leaf = nullptr) {
        if (frustum_.Excludes(bounds)) return;
        own_.waiting_.push_back({NearestDepth(view_.projection, bounds), node, leaf});
        std::ranges::push_heap(own_.waiting_, std::ranges::greater(), &Waiting::depth);
    }

    /// Adds the brush if something of it shows, and has it hide what is behind it.
    void LookAt(const PreviewTree::Leaf& leaf, float depth) {
        const PixelRect shown = own_.occlusion_.Showing(leaf.bounds);
        if (shown.width == 0) return;
        AddItem(leaf, depth, shown);
        PreviewBrush& built = mesh_.brushes[leaf.brush];
        const Brush& brush = scene_.brushes[leaf.brush];
        if (HidesOthers(built, brush, view_.showInvisible)) {
            own_.occlusion_.Add(FacesOf(mesh_, built), brush.vertices);
        }
    }

    void AddItem(const PreviewTree::Leaf& leaf, float depth, const PixelRect& shown) {
        const std::int32_t texture = mesh_.faces[mesh_.brushes[leaf.brush].firstFace].texture;
        const bool selected = scene_.brushes[leaf.brush].selected;
        own_.items_.push_back(
            {leaf.brush, selected ? ~texture : texture, depth, leaf.bounds, shown});
    }

    VisibleBrushes& own_;
    const Scene& scene_;
    PreviewMesh& mesh_;
    const PreviewView& view_;
    Frustum frustum_;
};

void VisibleBrushes::Find(const Scene& scene, PreviewMesh& mesh, const PreviewView& view) {
    Search search(*this, scene, mesh, view);
    if (!view.PickRendering && search.FindVisible()) {
        order_.Sort(items_);
    } else {
        search.FindAll();
    }
}

}  // namespace korvane
