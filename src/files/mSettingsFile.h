// The settings file (Korvane.kvdat) in memory.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "files/Settings.h"

namespace korvane {

/// The settings as the bytes of a settings file. A recent path that its code page can't hold is
/// left out, because it would come back as another one.
std::vector<std::uint8_t> EncodeSettings(const Settings& settings);

/// Reads a settings file over the settings. False when it is damaged: what stands before the damage
/// has been read, the rest is as it was. A value without use (a size out of its range, a layout
/// that does not exist, no number) leaves its setting as it was and is no damage. `foreign` tells
/// whether something unknown stands behind the settings: damage, or the work of a later version.
bool DecodeSettings(std::span<const std::uint8_t> bytes, Settings& settings,
                    bool* foreign = nullptr);

}  // namespace korvane
