// The record of a run: it names files that the next start opens and deletes.
#include "Fuzz.h"
#include "files/RunRecord.h"

namespace korvane::fuzz {
namespace {

Bytes Encode(const RunRecord& record) {
    Bytes bytes;
    const auto add = [&bytes](RunEntry kind, const std::string& text) {
        const Bytes entry = EncodeRunEntry(kind, text);
        bytes.insert(bytes.end(), entry.begin(), entry.end());
    };
    add(record.foreign ? RunEntry::ForeignPath : RunEntry::Path, record.path);
    for (std::size_t i = 0; i <= record.files.size(); ++i) {
        if (i == record.saved) add(RunEntry::Saved, {});
        if (i < record.files.size()) add(RunEntry::Scene, record.files[i]);
    }
    return bytes;
}

}  // namespace

void CheckRecord(Input input) {
    RunRecord record;
    {
        const HeapMeter meter;
        record = DecodeRunRecord(input);
        meter.RequireWithin(Allowance(input, 40));  // a name of one character takes a whole string
    }
    Require(record.saved <= record.files.size(), "what is saved was noted");
    for (const std::string& name : record.files)
        Require(name.starts_with('$') && name.ends_with('$') && name.find('/') == name.npos,
                "files lie in the folder of the record");
    const RunRecord again = DecodeRunRecord(Encode(record));
    Require(again.path == record.path && again.foreign == record.foreign &&
                again.files == record.files && again.saved == record.saved,
            "the record comes back from its entries");
}

}  // namespace korvane::fuzz
