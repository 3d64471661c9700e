#include "files/RunRecord.h"

#include <algorithm>

namespace korvane {
namespace {

/// The files named are opened and deleted: a damaged record must not lead to others.
bool IsCacheName(std::string_view name) {
    return name.starts_with('$') && name.ends_with('$') && name.find('/') == name.npos;
}

void Apply(std::string_view entry, RunRecord& record) {
    const auto kind = static_cast<RunEntry>(entry.front());
    const std::string text(entry.substr(1));
    switch (kind) {
        case RunEntry::Path:
        case RunEntry::ForeignPath:
            record.path = text;
            record.foreign = kind == RunEntry::ForeignPath;
            break;
        case RunEntry::Scene:
            if (IsCacheName(text)) record.files.push_back(text);
            break;
        case RunEntry::Saved:
            if (text.empty()) record.saved = record.files.size();
            break;
    }
}

}  // namespace

std::vector<std::uint8_t> EncodeRunEntry(RunEntry kind, std::string_view text) {
    std::string entry("\0", 1);
    entry += static_cast<char>(kind);
    entry += text;
    entry += '\0';
    return {entry.begin(), entry.end()};
}

RunRecord DecodeRunRecord(std::span<const std::uint8_t> bytes) {
    RunRecord record;
    auto from = bytes.begin();
    for (;;) {
        const auto end = std::find(from, bytes.end(), std::uint8_t{0});
        if (end == bytes.end()) return record;  // what no zero ends is torn
        const std::string entry(from, end);
        if (!entry.empty()) Apply(entry, record);
        from = end + 1;
    }
}

}  // namespace korvane
