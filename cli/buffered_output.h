// Text for the standard output, many lines at a time.
#ifndef TIDEWELL_CLI_BUFFERED_OUTPUT_H
#define TIDEWELL_CLI_BUFFERED_OUTPUT_H

#include "report.h"

#include <string>

namespace cli {

class BufferedOutput {
  public:
    // Returns whether the output takes what it gets.
    bool add(const std::string& text) {
        constexpr size_t kBlock = size_t{64} * 1024;
        waiting_ += text;
        return waiting_.size() < kBlock || flush();
    }

    // Returns whether the output has taken everything.
    bool flush() {
        taken_ = taken_ && printOutput(waiting_);
        waiting_.clear();
        return taken_;
    }

  private:
    std::string waiting_;
    bool taken_ = true;
};

}  // namespace cli

#endif
