#include "hosts/qt/keys/edit_history.h"

namespace tessaria::qt {
namespace {

/// The limit of edits kept while the field has the focus.
constexpr std::size_t kMostStates = 1000;

}  // namespace

void EditHistory::changed(const EditState& before) {
  if (before_.size() == kMostStates) before_.erase(before_.begin());
  before_.push_back(before);
  after_.clear();
}

EditState EditHistory::step(States& from, States& to, const EditState& now) {
  EditState wanted = std::move(from.back());
  from.pop_back();
  to.push_back(now);
  return wanted;
}

}  // namespace tessaria::qt
