// The rules of includes. docs/architecture.md explains these tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>

#include "tests/layout/include_graph.h"
#include "tests/layout/source_tree.h"

namespace layout {
namespace {

using testing::IsEmpty;
using testing::Not;

// The core's folders by height: a folder includes itself and lower ones.
const std::map<std::string, int> kHeight = {
    {"include", 0}, {"runtime", 1}, {"services", 2}, {"mask", 3},    {"lookup", 4},
    {"browse", 5},  {"pickers", 5}, {"wizard", 5},   {"control", 6}, {"propertypage", 7},
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

// What a host may use from outside the project, besides the standard library.
const std::map<std::string, std::string> kHostLibraries = {
    {"hosts/memory", "(?!)"},
    {"hosts/odbc", R"(^(sql\w*|odbcinst|dlfcn)\.h$)"},
    {"hosts/postgres", R"(^(libpq-fe|sys/socket|unistd|winsock2)\.h$)"},
    {"hosts/qt", R"(^(Qt\w*/)?Q\w+$|^Qt$)"},
    {"hosts/qtsql", R"(^Q\w+$)"},
    {"hosts/sql", "(?!)"},
};

// The hosts that another stands on.
const std::map<std::string, std::set<std::string>> kBases = {
    {"hosts/odbc", {"hosts/sql"}},
    {"hosts/postgres", {"hosts/sql"}},
    {"hosts/qtsql", {"hosts/odbc", "hosts/postgres"}}};

// The rooms of each area that has any, bottom up: a room includes itself and lower ones. The empty
// name is the area's own folder.
const std::map<std::string, std::vector<std::string>> kRooms = {
    {"control", {"", "storage"}},
    {"hosts/memory", {"", "dialogs"}},
    {"hosts/odbc", {""}},
    {"hosts/postgres", {""}},
    {"hosts/qt",
     {"conversion", "boundary", "form", "focus", "keys", "data", "control", "widgets", "dialogs",
      "program", "items", "record"}},
    {"hosts/qtsql", {""}},
    {"hosts/sql", {"errors", "values", "statements", "driver", "session", "rows", "recordset", ""}},
};

// "include/tessaria/qt" for "hosts/qt".
std::string PublicFolderOf(const std::string& host) {
  return "include/tessaria" + host.substr(host.find('/'));
}

// "hosts/qt" for a host and its public headers, the first folder for everything else.
std::string AreaOf(const std::string& path) {
  for (const auto& [host, libraries] : kHostLibraries)
    if (path.starts_with(PublicFolderOf(host) + "/")) return host;
  auto end = path.find('/');
  if (path.starts_with("hosts/")) end = path.find('/', end + 1);
  return path.substr(0, end);
}

// The area of a quoted include, which is written from the root or from include/.
std::string AreaOfTarget(const Include& include) { return AreaOf(PathOfTarget(include)); }

bool IsCore(const std::string& area) { return kHeight.contains(area); }
bool IsHost(const std::string& area) { return area.starts_with("hosts/"); }
bool HasRooms(const std::string& area) { return kRooms.contains(area); }

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
  const auto base = kBases.find(area);
  return !IsCore(target) && target != area &&
         (base == kBases.end() || !base->second.contains(target));
}

// The height of a component among the rooms of its area, from 0; -1 without a room. A public header
// that belongs to no source has the height of its folder, or else is at the bottom.
std::ptrdiff_t RoomOf(const std::string& component) {
  const std::string area = AreaOf(component);
  const auto& rooms = kRooms.at(area);
  const bool isPublic = !component.starts_with(area);
  const auto folder = std::filesystem::path(component).parent_path();
  const auto room = folder.lexically_relative(isPublic ? PublicFolderOf(area) : area);
  const auto at = std::ranges::find(rooms, room == "." ? std::string() : room.generic_string());
  if (at == rooms.end() || (isPublic && at->empty())) return isPublic ? 0 : -1;
  return at - rooms.begin();
}

const Components& AllComponents() {
  static const Components components(AllIncludes());
  return components;
}

bool ReachesUpAmongRooms(const Include& include) {
  const auto from = AllComponents().Of(include.file);
  const auto to = AllComponents().Of(PathOfTarget(include));
  if (include.angled || !HasRooms(AreaOf(from)) || AreaOf(from) != AreaOf(to)) return false;
  return RoomOf(to) > RoomOf(from);
}

// Programs use what is installed, and their own headers.
// The command that checks form files reads conditions as the library does, by its own scanner.
bool ReachesIntoTheTree(const Include& include) {
  if (include.file.starts_with("apps/check/") && IsCore(AreaOf(include.target))) return false;
  static const std::set<std::string> closed = {"bench", "tests"};
  const auto area = AreaOf(include.target);
  return AreaOf(include.file) == "apps" && (IsCore(area) || IsHost(area) || closed.contains(area));
}

bool IsForeignToAHost(const Include& include) {
  const auto area = AreaOf(include.file);
  if (!include.angled || !IsHost(area)) return false;
  return !kStandardHeaders.contains(include.target) &&
         !std::regex_search(include.target, std::regex(kHostLibraries.at(area)));
}

// A program that uses an installed library has its own include folders.
bool IsOfAnotherTree(const std::string& file) {
  return file.starts_with("tests/package/consumer/");
}

bool IsNotFromTheRoot(const Include& include) {
  return !IsOfAnotherTree(include.file) && !include.angled && !IsGenerated(include.target) &&
         !Exists(include.target) && !Exists("include/" + include.target);
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

TEST(IncludeRules, EachRuleReportsExactlyWhatItForbids) {
  struct Case {
    Rule rule;
    Include include;
    bool breaks;
  };
  const Case cases[] = {
      {ReachesUpInTheCore, {"mask/a.cpp", 1, "control/members.h", false}, true},
      {ReachesUpInTheCore, {"browse/a.cpp", 1, "pickers/b.h", false}, true},
      {ReachesUpInTheCore, {"include/tessaria/a.h", 1, "runtime/text.h", false}, true},
      {ReachesUpInTheCore, {"control/a.cpp", 1, "hosts/memory/b.h", false}, true},
      {ReachesUpInTheCore, {"control/a.cpp", 1, "tessaria/qt/tstext.h", false}, true},
      {ReachesUpInTheCore, {"mask/a.cpp", 1, "mask/b.h", false}, false},
      {ReachesUpInTheCore, {"control/a.cpp", 1, "runtime/b.h", false}, false},
      {ReachesUpInTheCore, {"runtime/a.cpp", 1, "tessaria/variant.h", false}, false},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "QString", true}, true},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "unistd.h", true}, true},
      {IsForeignToTheCore, {"mask/a.cpp", 1, "string", true}, false},
      {IsForeignToTheCore, {"include/tessaria/qt/a.h", 1, "QString", true}, false},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "hosts/odbc/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "tests/support/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/sql/a.cpp", 1, "hosts/odbc/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/odbc/a.cpp", 1, "hosts/sql/b.h", false}, false},
      {ReachesOutOfAHost, {"hosts/postgres/a.cpp", 1, "hosts/sql/b.h", false}, false},
      {ReachesOutOfAHost, {"hosts/postgres/a.cpp", 1, "hosts/odbc/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qtsql/a.cpp", 1, "tessaria/odbc/b.h", false}, false},
      {ReachesOutOfAHost, {"hosts/qtsql/a.cpp", 1, "tessaria/qt/b.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "tessaria/memory/form.h", false}, true},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "a.moc", false}, false},
      {ReachesOutOfAHost, {"hosts/qt/a.cpp", 1, "control/members.h", false}, false},
      {ReachesUpAmongRooms, {"hosts/qt/focus/a.cpp", 1, "hosts/qt/keys/b.h", false}, true},
      {ReachesUpAmongRooms, {"hosts/qt/focus/a.cpp", 1, "tessaria/qt/tstext.h", false}, true},
      {ReachesUpAmongRooms, {"include/tessaria/qt/a.h", 1, "tessaria/qt/settle.h", false}, true},
      {ReachesUpAmongRooms, {"hosts/sql/rows/a.h", 1, "hosts/sql/sql_connection.h", false}, true},
      {ReachesUpAmongRooms,
       {"hosts/memory/a.h", 1, "tessaria/memory/dialogs/dialog.h", false},
       true},
      {ReachesUpAmongRooms, {"hosts/qt/keys/a.cpp", 1, "hosts/qt/focus/b.h", false}, false},
      {ReachesUpAmongRooms, {"hosts/qt/keys/a.cpp", 1, "hosts/qt/keys/b.h", false}, false},
      {ReachesUpAmongRooms, {"control/a.cpp", 1, "control/storage/b.h", false}, true},
      {ReachesUpAmongRooms, {"control/storage/a.cpp", 1, "control/b.h", false}, false},
      // A field installs the host, which opens the windows that contain fields.
      {ReachesUpAmongRooms, {"hosts/qt/control/a.cpp", 1, "tessaria/qt/host.h", false}, false},
      {ReachesUpAmongRooms,
       {"hosts/sql/sql_connection.cpp", 1, "hosts/sql/rows/a.h", false},
       false},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "hosts/qt/form/b.h", false}, true},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "hosts/qt/form/b.h", true}, true},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "include/tessaria/text.h", false}, true},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "tests/qt/operator.h", false}, true},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "tessaria/qt/tstext.h", true}, false},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "apps/demo/b.h", false}, false},
      {ReachesIntoTheTree, {"apps/demo/a.cpp", 1, "lookup/a.h", false}, true},
      {ReachesIntoTheTree, {"apps/check/a.cpp", 1, "lookup/a.h", false}, false},
      {ReachesIntoTheTree, {"apps/check/a.cpp", 1, "hosts/qt/form/b.h", false}, true},
      {ReachesIntoTheTree, {"tests/qt/a.cpp", 1, "hosts/qt/form/b.h", false}, false},
      {IsForeignToAHost, {"hosts/odbc/a.cpp", 1, "QString", true}, true},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "sql.h", true}, true},
      {IsForeignToAHost, {"hosts/memory/a.cpp", 1, "sql.h", true}, true},
      {IsForeignToAHost, {"hosts/odbc/a.cpp", 1, "sqlext.h", true}, false},
      {IsForeignToAHost, {"hosts/postgres/a.cpp", 1, "libpq-fe.h", true}, false},
      {IsForeignToAHost, {"hosts/postgres/a.cpp", 1, "sql.h", true}, true},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "QLineEdit", true}, false},
      {IsForeignToAHost, {"hosts/qt/a.cpp", 1, "QtDesigner/QExtensionFactory", true}, false},
      {IsNotFromTheRoot, {"runtime/a.cpp", 1, "text.h", false}, true},
      {IsNotFromTheRoot, {"runtime/a.cpp", 1, "runtime/digits.h", false}, false},
      {IsNotFromTheRoot, {"tests/package/consumer/a.cpp", 1, "text.h", false}, false},
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

TEST(IncludeRules, EveryFileOfAnAreaWithRoomsIsInOne) {
  for (const auto& file : FilesEndingIn({".h", ".cpp"})) {
    const bool inRoom = !HasRooms(AreaOf(file)) || RoomOf(AllComponents().Of(file)) >= 0;
    EXPECT_TRUE(inRoom) << file;
  }
}

TEST(IncludeRules, ARoomIncludesOnlyWhatIsBelowIt) {
  EXPECT_THAT(Breaches(ReachesUpAmongRooms), IsEmpty());
}

TEST(IncludeRules, ProgramsIncludeWhatIsInstalledAndTheirOwn) {
  EXPECT_THAT(Breaches(ReachesIntoTheTree), IsEmpty());
}

TEST(IncludeRules, AHostUsesItsOwnLibraryOnly) {
  EXPECT_THAT(Breaches(IsForeignToAHost), IsEmpty());
}

TEST(IncludeRules, QuotedIncludesAreWrittenFromTheRoot) {
  EXPECT_THAT(Breaches(IsNotFromTheRoot), IsEmpty());
}

}  // namespace
}  // namespace layout
