#include "pc/apple_double/apple_double_layout.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>

namespace pc {

namespace {

// A run of bytes of the new file: of one entry, or of none.
struct Part {
    uint32_t id = 0;
    bool entry = false;
    uint64_t from = 0;
    uint64_t copied = 0;
    uint64_t length = 0;  // what exceeds `copied` is new
};

class Planner {
  public:
    Planner(const AppleDoubleSource& source, const ResourcePlan& resource)
        : source_(source), resource_(resource), header_(source.header) {}

    void edit(const std::vector<AppleDoubleEdit>& edits) {
        for (const AppleDoubleEdit& edit : edits) {
            const size_t needed = std::max<size_t>(edit.leastLength, edit.offset + edit.bytes.size());
            AppleDoubleEntry& entry = entryFor(edit.id);
            entry.length = std::max(entry.length, static_cast<uint32_t>(needed));
        }
        if (resource_.kind == ResourcePlan::makeLast) {
            AppleDoubleEntry& entry = entryFor(kResourceFork);
            entry.length = std::min(entry.length, resource_.longest);
        }
        if (resource_.kind == ResourcePlan::drop) {
            std::erase_if(header_.entries, [](const AppleDoubleEntry& e) { return e.id == kResourceFork; });
        }
    }

    Error layOut(AppleDoubleLayout& layout) {
        if (header_.entries.size() > UINT16_MAX) return ERROR_FILE_TOO_LARGE;
        collectOldParts();
        const AppleDoubleEntry* const resource = header_.find(kResourceFork);
        const bool last =
            resource != nullptr && (resource_.kind == ResourcePlan::makeLast || resource->length == 0 ||
                                    (!parts_.empty() && isResource(parts_.back())));
        if (last) std::erase_if(parts_, isResource);
        addNewParts();
        if (last) parts_.push_back(partOf(*resource));
        return place(layout);
    }

  private:
    static bool isResource(const Part& part) { return part.entry && part.id == kResourceFork; }

    AppleDoubleEntry& entryFor(uint32_t id) {
        if (AppleDoubleEntry* const entry = header_.find(id)) return *entry;
        return header_.entries.emplace_back(AppleDoubleEntry{id, 0, 0});
    }

    Part partOf(const AppleDoubleEntry& entry) const {
        const AppleDoubleEntry* const old = source_.header.find(entry.id);
        Part part{entry.id, true, 0, 0, entry.length};
        if (old != nullptr) {
            part.from = old->offset;
            part.copied = std::min(old->length, entry.length);
        }
        return part;
    }

    void collectOldParts() {
        std::vector<AppleDoubleEntry> entries = source_.header.entries;
        std::erase_if(entries, [](const AppleDoubleEntry& e) { return e.length == 0; });
        const auto lessOffset = [](const AppleDoubleEntry& a, const AppleDoubleEntry& b) {
            return a.offset < b.offset;
        };
        std::sort(entries.begin(), entries.end(), lessOffset);
        uint64_t position = source_.bodyStart;
        const auto keepUntil = [&](uint64_t end) {
            if (end > position) parts_.push_back({0, false, position, end - position, end - position});
        };
        for (const AppleDoubleEntry& entry : entries) {
            keepUntil(entry.offset);
            if (const AppleDoubleEntry* const now = header_.find(entry.id)) parts_.push_back(partOf(*now));
            position = entry.end();
        }
        keepUntil(source_.fileSize);
    }

    // An entry that was empty and remains so stays where it is said to be.
    void addNewParts() {
        for (const AppleDoubleEntry& entry : header_.entries) {
            const AppleDoubleEntry* const old = source_.header.find(entry.id);
            const bool placed = old != nullptr && (old->length != 0 || entry.length == 0);
            if (!placed && entry.id != kResourceFork) parts_.push_back(partOf(entry));
        }
    }

    Error place(AppleDoubleLayout& layout) {
        uint64_t position = std::max<uint64_t>(source_.bodyStart, header_.size());
        for (const Part& part : parts_) {
            if (part.copied != 0) layout.copies.push_back({part.from, position, part.copied});
            if (part.entry) {
                if (position > UINT32_MAX) return ERROR_FILE_TOO_LARGE;
                header_.find(part.id)->offset = static_cast<uint32_t>(position);
            }
            position += part.length;
        }
        for (AppleDoubleEntry& entry : header_.entries) {
            if (entry.offset > position) entry.offset = static_cast<uint32_t>(position);
        }
        layout.header = std::move(header_);
        layout.fileSize = position;
        return 0;
    }

    const AppleDoubleSource& source_;
    const ResourcePlan& resource_;
    AppleDoubleHeader header_;
    std::vector<Part> parts_;
};

}  // namespace

Error planAppleDouble(const AppleDoubleSource& source, const std::vector<AppleDoubleEdit>& edits,
                      const ResourcePlan& resource, AppleDoubleLayout& layout) {
    layout = AppleDoubleLayout();
    Planner planner(source, resource);
    planner.edit(edits);
    return planner.layOut(layout);
}

}  // namespace pc
