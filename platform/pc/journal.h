// What the library asked of the PC, in order, so that a test can say what must and must not have been sent.
#ifndef TIDEWELL_PLATFORM_PC_JOURNAL_H
#define TIDEWELL_PLATFORM_PC_JOURNAL_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pc {

struct JournalEntry {
    std::string call;     // the function's name
    std::string subject;  // the path it named, or the path its handle was opened with
    uint64_t amount;      // bytes, or what else the call counts
    uint32_t error;       // 0 when it succeeded
};

class Journal {
  public:
    // A PC that works for a person keeps none: it would grow without end.
    void setKept(bool kept) { kept_ = kept; }
    bool kept() const { return kept_; }

    void record(std::string_view call, std::string_view subject, uint64_t amount, uint32_t error);

    const std::vector<JournalEntry>& entries() const { return entries_; }
    int count(std::string_view call) const;
    // How often `call` succeeded on a subject that ends with `subjectEnd`.
    int countOn(std::string_view call, std::string_view subjectEnd) const;
    void clear() { entries_.clear(); }

    // One line a call, for a failed test's message.
    std::string text() const;

  private:
    bool kept_ = true;
    std::vector<JournalEntry> entries_;
};

}  // namespace pc

#endif
