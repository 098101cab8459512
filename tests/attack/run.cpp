#include "tests/attack/run.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>
#include <utility>

namespace tessaria::attack {
namespace {

// g++ and clang report the address sanitizer in different ways.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSlow = true;
#elif defined(__has_feature)
constexpr bool kSlow = __has_feature(address_sanitizer);
#else
constexpr bool kSlow = false;
#endif

Settings settings;
const Stopwatch watch;
std::vector<std::pair<std::string, long long>> counts;
std::map<std::string, long long> faults;
constexpr long long kFaultsTold = 3;

void TakeSeed(std::string_view text) {
  settings.Seed = std::strtoull(std::string(text).c_str(), nullptr, 10);
}

// The same on every machine.
std::uint64_t Hash(std::string_view text) {
  std::uint64_t hash = 14695981039346656037u;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211u;
  return hash;
}

}  // namespace

const Settings& TheSettings() { return settings; }

void ReadSettings(int argc, char** argv) {
  constexpr std::string_view seedOption = "--seed=";
  std::string_view seed;
  const char* length = std::getenv("TESSARIA_ATTACK");
  settings.Long = length != nullptr && std::string_view(length) == "long";
  if (const char* given = std::getenv("TESSARIA_ATTACK_SEED")) seed = given;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument == "--long") settings.Long = true;
    if (argument.starts_with(seedOption)) seed = argument.substr(seedOption.size());
  }
  if (!seed.empty()) {
    TakeSeed(seed);
  } else if (settings.Long) {
    settings.Seed = std::random_device()();
  }
  std::printf("attack: seed %llu, %s run\n", static_cast<unsigned long long>(settings.Seed),
              settings.Long ? "long" : "short");
}

long long Amount(long long shortRun, long long longRun) {
  if (settings.Long) return longRun;
  return kSlow ? std::max(1LL, shortRun / 4) : shortRun;
}

void Count(const std::string& what, long long by) {
  const auto found = std::ranges::find(counts, what, [](const auto& entry) { return entry.first; });
  if (found == counts.end()) {
    counts.emplace_back(what, by);
  } else {
    found->second += by;
  }
}

void PrintCounts() {
  for (const auto& [what, count] : counts) std::printf("attack: %12lld %s\n", count, what.c_str());
  for (const auto& [kind, count] : faults)
    std::printf("attack: %12lld FAULTS: %s\n", count, kind.c_str());
  std::printf("attack: %12.1f seconds, %.1f MB of heap\n", watch.Seconds(),
              static_cast<double>(HeapBytes()) / 1e6);
}

void Fault(const std::string& kind, const std::string& detail) {
  if (++faults[kind] <= kFaultsTold) ADD_FAILURE() << kind << "\n" << detail;
}

long long FaultCount() {
  long long sum = 0;
  for (const auto& [kind, count] : faults) sum += count;
  return sum;
}

long long HeapBytes() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<long long>(info.uordblks) + static_cast<long long>(info.hblkhd);
}

Random::Random(const std::string& part) : engine_(settings.Seed ^ Hash(part)) {}

}  // namespace tessaria::attack
