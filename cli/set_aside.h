// A Mac file that is to be replaced, kept until its successor is whole.
#ifndef TIDEWELL_CLI_SET_ASIDE_H
#define TIDEWELL_CLI_SET_ASIDE_H

#include "base/error_code.h"

#include <string>

namespace cli {

// Whether the Mac information of a file that is gone is still there; a new file of the name would get it.
bool leftMacInformation(const std::string& typed);

// Paths are as typed. A link is moved, and not what it leads to.
class SetAside {
  public:
    // Gives the file, with all that belongs to it, the name `aside` in its folder, which nothing has yet. A
    // new file of the old name begins with the old one's permissions and Finder information.
    // ERROR_ACCESS_DENIED for what is no file, or is not to be written to. After an error nothing has
    // changed, unless `what` tells otherwise.
    tidewell::ErrorCode begin(const std::string& typed, const std::string& aside);

    // Brings it back, over what has its name now.
    tidewell::ErrorCode bringBack();

    // Deletes it, when its successor is safe on the disk.
    tidewell::ErrorCode discard();

    // What is still aside, in words for the user: "a is now b"; empty when nothing is.
    std::string what() const;

  private:
    std::string typed_;
    std::string aside_;
    bool movedFile_ = false;
    bool movedInformation_ = false;  // the AppleDouble file, where there is one
};

}  // namespace cli

#endif
