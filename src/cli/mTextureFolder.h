// The texture folder of a run, and the toolkit's application object that reading pictures needs.
#pragma once

#include <QCoreApplication>
#include <memory>
#include <string>

#include "textures/core/TextureLibrary.h"

namespace korvane {

/// The application object, which must live while textures are read or pictures made. With `fonts`
/// it can draw text as well; it never needs a display, whatever the environment says. Messages of
/// the toolkit are dropped.
std::unique_ptr<QCoreApplication> MakeApplication(bool fonts);

/// The folder that was asked for, or the one the editor uses. Needs the application object.
std::string TextureFolder(const std::string& asked);

/// The library of that folder under the indices that the editor would give. Needs the application
/// object.
TextureLibrary ListTextures(const std::string& asked);

}  // namespace korvane
