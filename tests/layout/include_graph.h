// The graph of includes between components: a header and the source of the same name are one.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/layout/source_tree.h"

namespace layout {

/// The path, from the root, of a project file that an `#include` line names.
std::string PathOfTarget(const Include& include);

/// Finds the component of a file. A header belongs to the source of the same name that includes it
/// first, in whatever folders they are.
class Components {
 public:
  explicit Components(const std::vector<Include>& includes);

  /// The path of its source, or of a header without a source, without the extension.
  std::string Of(const std::string& path) const;

 private:
  std::map<std::string, std::string> sources_;  // by header, both without extension
};

/// The components that each component includes.
using IncludeGraph = std::map<std::string, std::set<std::string>>;

IncludeGraph GraphOf(const std::vector<Include>& includes);

/// The components from which a path leads back to themselves, and no others.
std::set<std::string> InCircles(const IncludeGraph& graph);

}  // namespace layout
