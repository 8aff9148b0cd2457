#include "pc/journal.h"

#include <algorithm>

namespace pc {

void Journal::record(std::string_view call, std::string_view subject, uint64_t amount, uint32_t error) {
    if (kept_) entries_.push_back({std::string(call), std::string(subject), amount, error});
}

int Journal::count(std::string_view call) const {
    return static_cast<int>(std::count_if(entries_.begin(), entries_.end(),
                                          [call](const JournalEntry& entry) { return entry.call == call; }));
}

int Journal::countOn(std::string_view call, std::string_view subjectEnd) const {
    return static_cast<int>(
        std::count_if(entries_.begin(), entries_.end(), [call, subjectEnd](const JournalEntry& entry) {
            return entry.call == call && entry.error == 0 && entry.subject.ends_with(subjectEnd);
        }));
}

std::string Journal::text() const {
    std::string lines;
    for (const JournalEntry& entry : entries_) {
        lines += entry.call + ' ' + entry.subject + ' ' + std::to_string(entry.amount) + " -> " +
                 std::to_string(entry.error) + '\n';
    }
    return lines;
}

}  // namespace pc
