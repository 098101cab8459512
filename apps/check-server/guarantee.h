// One guarantee of the data layer, and what its check finds out.
#pragma once

#include <string>
#include <vector>

#include "apps/check-server/subject.h"

namespace tessaria::check {

enum class Verdict { Kept, NotKept, CannotTell };

struct Finding {
  Verdict verdict = Verdict::Kept;
  std::string why;  ///< empty when it is kept
};

struct Guarantee {
  std::string name;
  /// May raise an error, which means that the guarantee is not kept.
  Finding (*check)(Subject& subject);
};

inline Finding Kept() { return {}; }
inline Finding NotKept(std::string why) { return {Verdict::NotKept, std::move(why)}; }
inline Finding CannotTell(std::string why) { return {Verdict::CannotTell, std::move(why)}; }
inline Finding KeptIf(bool isKept, std::string why) {
  return isKept ? Kept() : NotKept(std::move(why));
}

// In the order in which they are told.
std::vector<Guarantee> StatementGuarantees();
std::vector<Guarantee> RowGuarantees();
std::vector<Guarantee> TypeGuarantees();
std::vector<Guarantee> WaitGuarantees();

}  // namespace tessaria::check
