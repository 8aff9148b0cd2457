// 8.3 names of files with long names.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_SHORT_NAMES_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_SHORT_NAMES_H

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pc {

// Remembers which short name each file got: it keeps it while it exists. Names are UTF-8.
class ShortNames {
  public:
    using Names = std::vector<std::string>;

    // The short name of `name`, which is itself when it is one. `list` gives the names in `folder`; it is
    // asked only when a short name is to be found.
    std::string shortNameOf(const std::string& folder, const std::string& name,
                            const std::function<Names()>& list);

    // The file in `folder` that has the short name `alias`, in any letter case; empty when there is none.
    // All files in `names` that need a short name get it.
    std::string longNameOf(const std::string& folder, const std::string& alias, Names names);

  private:
    using Aliases = std::map<std::string, std::string>;  // short names by long name

    // Forgets what is not in `existing` any more, and gives each of `wanting` its alias.
    static void assign(Aliases& aliases, const Names& existing, const Names& wanting);

    std::map<std::string, Aliases> folders_;
};

}  // namespace pc

#endif
