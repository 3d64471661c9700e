// A folder of its own for a test, removed at the end with all it holds.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace korvane::test {

using Bytes = std::vector<std::uint8_t>;

/// The whole file as it lies on the disk; empty when there is none.
inline Bytes FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteFileBytes(const std::string& path, const Bytes& bytes) {
    std::ofstream out(path, std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
}

class TempFolder {
  public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "korvane-XXXXXX").string();
        if (!mkdtemp(name.data())) ADD_FAILURE() << "no temporary folder";
        path_ = name;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::string Path(const std::string& name = {}) const {
        return name.empty() ? path_ : path_ + "/" + name;
    }

    /// Number of files, folders and links directly inside.
    std::ptrdiff_t EntryCount() const {
        return std::distance(std::filesystem::directory_iterator(path_),
                             std::filesystem::directory_iterator());
    }

  private:
    std::string path_;
};

}  // namespace korvane::test
