// What becomes of memory that was freed.
#pragma once

namespace korvane {

/// Lets the program keep about 64 MB of freed memory instead of handing it back to the system at
/// once: every frame of the preview needs a few MB again, and getting them anew costs time. Does
/// nothing where the C library has no such choice.
void KeepFreedMemory();

}  // namespace korvane
