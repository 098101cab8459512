// Who includes whom, by components: a header and the source of its name are one.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/layout/source_tree.h"

namespace layout {

/// Where a file of ours that an `#include` line names stands, from the root.
std::string PathOfTarget(const Include& include);

/// Tells the component of a file. A header belongs to the source of the same name that includes it
/// first, wherever either stands.
class Components {
 public:
  explicit Components(const std::vector<Include>& includes);

  /// The path of its source, or of the header that has none, without the ending.
  std::string Of(const std::string& path) const;

 private:
  std::map<std::string, std::string> sources_;  // by header, both without ending
};

/// The components that each component includes.
using IncludeGraph = std::map<std::string, std::set<std::string>>;

IncludeGraph GraphOf(const std::vector<Include>& includes);

/// The components from which a way leads back to themselves, and none else.
std::set<std::string> InCircles(const IncludeGraph& graph);

}  // namespace layout
