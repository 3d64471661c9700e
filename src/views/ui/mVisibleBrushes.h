// Which brushes a frame of the preview draws: those that can be seen, in the order to draw them.
#pragma once

#include <array>
#include <vector>

#include "views/ui/mDrawOrder.h"
#include "views/ui/mOcclusion.h"
#include "views/ui/mPreviewMesh.h"

namespace korvane {

/// From where, and what, the frame looks at.
struct PreviewView {
    Vec3 eye;
    /// Clip coordinates of a world point: column-major, as OpenGL stores them.
    std::array<double, 16> projection{};
    int width = 0;  ///< pixels; without any, nothing counts as hidden by something else
    int height = 0;
    bool showInvisible = true;
    bool PickRendering = false;  ///< give the runs selection names
};

/// Finds the brushes to draw. Kept from frame to frame for its memory only.
class VisibleBrushes {
  public:
    /// Finds the brushes to draw. They stand in scene order in a pick, and in a view in which it
    /// cannot be told what hides what: then only those outside the view are left out.
    void Find(const Scene& scene, PreviewMesh& mesh, const PreviewView& view);

    /// The brushes found last.
    const std::vector<DrawItem>& Items() const { return items_; }

  private:
    class Search;

    /// A node of the tree, or a brush of it, that waits to be looked at.
    struct Waiting {
        float depth;
        const PreviewTree::Node* node;  ///< null for a brush
        const PreviewTree::Leaf* leaf;
    };

    OcclusionBuffer occlusion_;
    DrawOrder order_;
    std::vector<DrawItem> items_;
    std::vector<Waiting> waiting_;  ///< a heap, the nearest on top
};

}  // namespace korvane
