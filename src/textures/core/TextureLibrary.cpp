#include "textures/core/TextureLibrary.h"

#include <utility>

#include "base/SingleByteText.h"

namespace korvane {
namespace {

std::int32_t Find(const std::unordered_map<std::string, std::int32_t>& names,
                  std::string_view name) {
    const auto found = names.find(LowerCase(name));
    return found == names.end() ? 0 : found->second;
}

}  // namespace

TextureLibrary::TextureLibrary(std::int32_t placeholderWidth, std::int32_t placeholderHeight) {
    AddTexture("", placeholderWidth, placeholderHeight, "NO Material");
}

std::int32_t TextureLibrary::AddTexture(std::string filename, std::int32_t width,
                                        std::int32_t height, std::string displayName) {
    const std::int32_t index = ListCount();
    if (displayName.empty()) displayName = filename.substr(0, filename.rfind('.'));
    byName_.emplace(LowerCase(displayName), index);
    byFileName_.emplace(LowerCase(filename), index);
    materials_.push_back({std::move(displayName), std::move(filename), width, height});
    return index;
}

void TextureLibrary::SelectTexture(std::int32_t index) {
    if (Holds(index)) selected_ = index;
}

std::int32_t TextureLibrary::IDByName(std::string_view name) const {
    return Find(byName_, name);
}

std::int32_t TextureLibrary::IDByFileName(std::string_view filename) const {
    return Find(byFileName_, filename);
}

const Material& TextureLibrary::Entry(std::int32_t index) const {
    static const Material none;
    return Holds(index) ? materials_[index] : none;
}

std::vector<std::int32_t> TextureLibrary::EntriesWith(std::string_view text) const {
    const std::string wanted = LowerCase(text);
    std::vector<std::int32_t> entries;
    for (std::int32_t i = 0; i < ListCount(); ++i) {
        if (LowerCase(TextureName(i)).find(wanted) != std::string::npos) entries.push_back(i);
    }
    return entries;
}

}  // namespace korvane
