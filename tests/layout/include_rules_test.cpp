// Who may include whom. The picture behind these tables stands in docs/architecture.md.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <regex>
#include <sstream>

#include "tests/layout/source_tree.h"

namespace layout {
namespace {

using testing::IsEmpty;
using testing::Not;

// The core's folders by height: a folder includes itself and what is lower.
const std::map<std::string, int> kHeight = {
    {"include", 0}, {"runtime", 1}, {"services", 2}, {"mask", 3},         {"lookup", 4},
    {"browse", 5},  {"pickers", 5}, {"control", 6},  {"propertypage", 7}, {"wizard", 7},
};

std::set<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

const std::set<std::string> kStandardHeaders = Words(R"(
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat
    charconv chrono cinttypes climits clocale cmath compare complex concepts
    condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib
    cstring ctime cuchar cwchar cwctype deque exception execution filesystem forward_list
    fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator
    latch limits list locale map memory memory_resource mutex new numbers numeric optional
    ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex
    source_location span sstream stack stdexcept stop_token streambuf string string_view
    syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map
    unordered_set utility valarray variant vector version
)");

// What a host may take from outside the project, besides the standard library.
const std::map<std::string, std::string> kHostLibraries = {
    {"hosts/memory", "(?!)"},
    {"hosts/odbc", R"(^(sql\w*|odbcinst)\.h$)"},
    {"hosts/qt", R"(^(Qt\w*/)?Q\w+$|^Qt$)"},
};

// "hosts/qt" for a host, the first folder for everything else.
std::string AreaOf(const std::string& path) {
  auto end = path.find('/');
  if (path.starts_with("hosts/")) end = path.find('/', end + 1);
  return path.substr(0, end);
}

// The area of a quoted include, which is written from the root or from include/.
std::string AreaOfTarget(const Include& include) {
  return include.target.starts_with("tessaria/") ? "include" : AreaOf(include.target);
}

bool IsCore(const std::string& area) { return kHeight.contains(area); }
bool IsHost(const std::string& area) { return area.starts_with("hosts/"); }

bool IsGenerated(const std::string& target) {
  static const std::regex pattern(R"((^ui_\w+\.h|\.moc|^moc_\w+\.cpp)$)");
  return std::regex_search(target, pattern);
}

bool ReachesUpInTheCore(const Include& include) {
  const auto area = AreaOf(include.file);
  if (include.angled || !IsCore(area)) return false;
  const auto target = AreaOfTarget(include);
  return !IsCore(target) || (target != area && kHeight.at(target) >= kHeight.at(area));
}

bool IsForeignToTheCore(const Include& include) {
  return include.angled && IsCore(AreaOf(include.file)) &&
         !kStandardHeaders.contains(include.target);
}

bool ReachesOutOfAHost(const Include& include) {
  const auto area = AreaOf(include.file);
  if (include.angled || !IsHost(area) || IsGenerated(include.target)) return false;
  const auto target = AreaOfTarget(include);
  return !IsCore(target) && target != area;
}

bool IsForeignToAHost(const Include& include) {
  const auto area = AreaOf(include.file);
  if (!include.angled || !IsHost(area)) return false;
  return !kStandardHeaders.contains(include.target) &&
         !std::regex_search(include.target, std::regex(kHostLibraries.at(area)));
}

bool IsNotFromTheRoot(const Include& include) {
  return !include.angled && !IsGenerated(include.target) && !Exists(include.target) &&
         !Exists("include/" + include.target);
}

using Rule = bool (*)(const Include&);

std::vector<std::string> Breaches(Rule breaks) {
  std::vector<std::string> found;
  for (const auto& include : AllIncludes()) {
    if (breaks(include)) found.push_back(include.Describe());
  }
  return found;
}

TEST(IncludeRules, TheScanSeesTheTree) {
  EXPECT_THAT(AllIncludes(), Not(IsEmpty()));
  EXPECT_TRUE(Exists("include/tessaria/variant.h"));
}

TEST(IncludeRules, EachRuleCatchesWhatItForbidsAndNothingElse) {
  struct Case {
    Rule rule;
    Include include;
    bool breaks;
  };
  const Case cases[] = {
      {ReachesUpInTheCore, {"mask/a.cpp", 1, "control/tstext.h", false}, true},
      {ReachesUpInTheCore, {"browse/a.cpp", 1, "pickers/b.h", false}, true},
      {ReachesUpInTheCore, {"include/tessaria/a.h", 1, "runtime/text.h", false}, true},
      {ReachesUpInTheCore, {"control/a.cpp", 1, "hosts/memory/b.h", false}, true},
      {ReachesUpInTheCore, {"mask/a.cpp", 1, "mask/b.h", false}, false},
      {ReachesUpInTheCore, {"control/a.cpp", 1, "runtime/b.h", false}, false},
      {ReachesUpInTheCore, {"runtime/a.cpp", 1, "tessaria/variant.h", false}, false},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "QString", true}, true},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "unistd.h", true}, true},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "string", true}, false},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "hosts/odbc/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "tests/support/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "a.moc", false}, false},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "control/tstext.h", false}, false},
      {IsForeignToAHost, {"hosts/odbc/a.cpp", 1, "QString", true}, true},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "sql.h", true}, true},
      {IsForeignToAHost, {"hosts/memory/a.cpp", 1, "sql.h", true}, true},
      {IsForeignToAHost, {"hosts/odbc/a.cpp", 1, "sqlext.h", true}, false},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "QLineEdit", true}, false},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "QtDesigner/QExtensionFactory", true}, false},
      {IsNotFromTheRoot, {"runtime/a.cpp", 1, "text.h", false}, true},
      {IsNotFromTheRoot, {"runtime/a.cpp", 1, "runtime/text.h", false}, false},
  };
  for (const auto& [rule, include, breaks] : cases) {
    EXPECT_EQ(rule(include), breaks) << include.Describe();
  }
}

TEST(IncludeRules, EveryFolderHasItsPlace) {
  static const std::set<std::string> others = {"apps", "bench", "tests"};
  for (const auto& file : FilesEndingIn({".h", ".cpp"})) {
    const auto area = AreaOf(file);
    EXPECT_TRUE(IsCore(area) || kHostLibraries.contains(area) || others.contains(area)) << file;
  }
}

TEST(IncludeRules, ACoreFolderIncludesOnlyWhatIsBelowIt) {
  EXPECT_THAT(Breaches(ReachesUpInTheCore), IsEmpty());
}

TEST(IncludeRules, TheCoreUsesTheStandardLibraryOnly) {
  EXPECT_THAT(Breaches(IsForeignToTheCore), IsEmpty());
}

TEST(IncludeRules, AHostKnowsTheCoreAndItselfOnly) {
  EXPECT_THAT(Breaches(ReachesOutOfAHost), IsEmpty());
}

TEST(IncludeRules, AHostUsesItsOwnLibraryOnly) {
  EXPECT_THAT(Breaches(IsForeignToAHost), IsEmpty());
}

TEST(IncludeRules, QuotedIncludesAreWrittenFromTheRoot) {
  EXPECT_THAT(Breaches(IsNotFromTheRoot), IsEmpty());
}

}  // namespace
}  // namespace layout
