// The start-up sequence: every subsystem in its order, each step traced in the log.
#pragma once

#include <cstdint>

#include "editor/StartUpLog.h"
#include "views/ui/mOGL3D.h"

namespace korvane {

class frmMain;

/// Makes the render context: colour bits, depth bits in, a negative number out on failure.
using ContextMaker = std::int32_t (*)(RenderContext&, std::uint8_t, std::uint8_t);

/// Brings the window's session up to the last traced step. False when no render context could be
/// made: the user has been told, and no later step ran.
bool RunStartUp(frmMain& window, StartUpLog& log, ContextMaker makeContext);

}  // namespace korvane
