// How an attack runs: its seed, its amounts, and what it counts for its closing lines.
#pragma once

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace tessaria::attack {

/// Amounts are small by default, so that every change is attacked. Called with `--long`, or with
/// TESSARIA_ATTACK=long in the environment, they are those of a night. `--seed=N`, or
/// TESSARIA_ATTACK_SEED, repeats a run; a long run without one draws its own.
struct Settings {
  bool Long = false;
  std::uint64_t Seed = 1;
};

/// Those of this program.
const Settings& TheSettings();
/// Reads the arguments and the environment, and prints the seed. To be called first.
void ReadSettings(int argc, char** argv);

/// The amount of this run. Under the sanitizers a short run is a quarter, at least one.
long long Amount(long long shortRun, long long longRun);

/// Adds to a count that `PrintCounts` prints, in order of first use.
void Count(const std::string& what, long long by = 1);
/// The counts, the seconds and the megabytes of the run so far.
void PrintCounts();

/// A fault of the attacked: fails the test, and tells the first ones of each kind.
void Fault(const std::string& kind, const std::string& detail);
/// Faults so far.
long long FaultCount();

/// Bytes of the heap that are in use.
long long HeapBytes();

/// Draws by one seed. The draws of a part depend on its name alone, so that parts can be run one
/// by one.
class Random {
 public:
  explicit Random(const std::string& part);

  /// From 0 to below the limit.
  std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(engine_() % limit); }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  template <class Container>
  const auto& OneOf(const Container& choices) {
    return choices[Below(std::size(choices))];
  }
  template <class T>
  T OneOf(std::initializer_list<T> choices) {
    return choices.begin()[Below(choices.size())];
  }

 private:
  std::mt19937_64 engine_;
};

/// Seconds since it was made.
class Stopwatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
  }

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace tessaria::attack
