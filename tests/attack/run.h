// How an attack runs: its seed, its amounts, and the counts that it prints at the end.
#pragma once

#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace tessaria::attack {

/// Amounts are small by default, so that every change is attacked. With `--long`, or with
/// TESSARIA_ATTACK=long in the environment, they are those of a run over night. `--seed=N`, or
/// TESSARIA_ATTACK_SEED, repeats a run; a long run without a seed chooses one.
struct Settings {
  bool Long = false;
  std::uint64_t Seed = 1;
};

/// The settings of this program.
const Settings& TheSettings();
/// Reads the arguments and the environment, and prints the seed. Call it first.
void ReadSettings(int argc, char** argv);

/// The amount of this run. Under the sanitizers a short run is a quarter, at least one.
long long Amount(long long shortRun, long long longRun);

/// Adds to a count that `PrintCounts` prints, in order of first use.
void Count(const std::string& what, long long by = 1);
/// Prints the counts, the seconds and the megabytes of the run so far.
void PrintCounts();

/// Reports a fault: fails the test, and prints the first ones of each kind.
void Fault(const std::string& kind, const std::string& detail);
/// Faults so far.
long long FaultCount();

/// Bytes of the heap that are in use.
long long HeapBytes();

/// Random numbers from one seed. Those of a part depend only on the seed and the name of the part,
/// so that parts can be run one by one.
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

/// Seconds since its creation.
class Stopwatch {
 public:
  double Seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
  }

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace tessaria::attack
