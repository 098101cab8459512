#include "tests/layout/include_graph.h"

#include <filesystem>

namespace layout {
namespace {

namespace fs = std::filesystem;

std::string WithoutEnding(const std::string& path) {
  return fs::path(path).replace_extension().generic_string();
}

std::string NameOf(const std::string& path) { return fs::path(path).stem().string(); }

// All that can be reached from `start` over at least one include.
std::set<std::string> ReachableFrom(const std::string& start, const IncludeGraph& graph) {
  std::set<std::string> reached;
  std::vector<std::string> open{start};
  while (!open.empty()) {
    const auto node = graph.find(open.back());
    open.pop_back();
    if (node == graph.end()) continue;
    for (const auto& next : node->second)
      if (reached.insert(next).second) open.push_back(next);
  }
  return reached;
}

}  // namespace

std::string PathOfTarget(const Include& include) {
  return include.target.starts_with("tessaria/") ? "include/" + include.target : include.target;
}

Components::Components(const std::vector<Include>& includes) {
  std::set<std::string> seen;
  for (const auto& include : includes) {
    const bool isFirst = seen.insert(include.file).second;
    if (!isFirst || include.angled || !include.file.ends_with(".cpp")) continue;
    if (NameOf(include.file) == NameOf(include.target))
      sources_[WithoutEnding(PathOfTarget(include))] = WithoutEnding(include.file);
  }
}

std::string Components::Of(const std::string& path) const {
  const std::string name = WithoutEnding(path);
  const auto source = sources_.find(name);
  return source == sources_.end() ? name : source->second;
}

IncludeGraph GraphOf(const std::vector<Include>& includes) {
  const Components components(includes);
  IncludeGraph graph;
  for (const auto& include : includes) {
    if (include.angled) continue;
    const std::string from = components.Of(include.file);
    const std::string to = components.Of(PathOfTarget(include));
    if (from != to) graph[from].insert(to);
  }
  return graph;
}

std::set<std::string> InCircles(const IncludeGraph& graph) {
  std::set<std::string> found;
  for (const auto& [node, targets] : graph)
    if (ReachableFrom(node, graph).contains(node)) found.insert(node);
  return found;
}

}  // namespace layout
