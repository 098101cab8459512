#include "tessaria/memory/dialogs/list_view.h"

#include <algorithm>

namespace tessaria::memory {
namespace {

/// Twips.
constexpr Long kRowHeight = 255;
constexpr Integer kSpaceKey = 32;

}  // namespace

class DialogListView::Row final : public host::ListRow {
 public:
  Row(DialogListView& list, String text) : list_(list), text_(std::move(text)) {}

  Long Index() const override { return list_.PositionOf(*this); }
  String Text() const override { return text_; }
  void Text(const String& text) override { text_ = text; }
  bool Checked() const override { return checked_; }
  void Checked(bool checked) override { checked_ = checked; }
  bool Selected() const override { return list_.selected_ == this; }
  void Selected(bool selected) override {
    if (selected) {
      list_.selected_ = this;
    } else if (Selected()) {
      list_.selected_ = nullptr;
    }
  }
  Long SubItemCount() const override { return static_cast<Long>(subItems_.size()); }
  String SubItem(Long position) const override { return subItems_[SubIndex(position)]; }
  void SubItem(Long position, const String& text) override { subItems_[SubIndex(position)] = text; }
  void AddSubItem(const String& text) override { subItems_.push_back(text); }
  void EnsureVisible() override { list_.ScrollTo(Index()); }

 private:
  std::size_t SubIndex(Long position) const {
    if (position < 1 || position > SubItemCount()) throw HostError(errors::SubscriptOutOfRange);
    return static_cast<std::size_t>(position - 1);
  }

  DialogListView& list_;
  String text_;
  bool checked_ = false;
  std::vector<String> subItems_;
};

std::size_t DialogListView::Index(Long position) const {
  if (position < 1 || position > Count()) throw HostError(errors::SubscriptOutOfRange);
  return static_cast<std::size_t>(position - 1);
}

Long DialogListView::PositionOf(const host::ListRow& row) const {
  const auto at = std::find_if(rows_.begin(), rows_.end(),
                               [&](const auto& candidate) { return candidate.get() == &row; });
  return static_cast<Long>(at - rows_.begin()) + 1;
}

host::ListRow& DialogListView::Add(const String& text, Long position) {
  const auto at = position == 0 ? rows_.size() : Index(position);
  auto& row = **rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at),
                             std::make_unique<Row>(*this, text));
  if (Count() == 1) selected_ = &row;
  return row;
}

void DialogListView::Remove(Long position) {
  const auto at = rows_.begin() + static_cast<std::ptrdiff_t>(Index(position));
  if (selected_ == at->get()) selected_ = nullptr;
  rows_.erase(at);
  top_ = std::clamp<Long>(top_, 1, std::max<Long>(1, Count()));
}

void DialogListView::Clear() {
  rows_.clear();
  selected_ = nullptr;
  top_ = 1;
}

host::ListRow* DialogListView::FindItem(const String& text) {
  for (const auto& row : rows_)
    if (row->Text() == text) return row.get();
  return nullptr;
}

host::ListRow* DialogListView::FindTag(const String& tag) {
  for (const auto& row : rows_)
    if (row->Tag == tag) return row.get();
  return nullptr;
}

host::ListRow* DialogListView::FirstVisible() { return rows_.empty() ? nullptr : &Item(top_); }

void DialogListView::ScrollTo(Long position) {
  const Long inView = std::max<Long>(1, Height() / kRowHeight);
  top_ = std::clamp(top_, std::max<Long>(1, position - inView + 1), position);
}

// --- The operator -------------------------------------------------------------------------------

void DialogListView::ClickRow(Long position) {
  auto& row = Item(position);
  row.Selected(true);
  row.EnsureVisible();
  Raise(OnItemClick, row);
}

void DialogListView::CheckRow(Long position) {
  auto& row = Item(position);
  if (checks_ == Checks::None) return;
  row.Checked(!row.Checked());
  Raise(OnItemCheck, row);
}

void DialogListView::DoubleClickRow(Long position) {
  ClickRow(position);
  Raise(OnDblClick);
}

bool DialogListView::ClickBeside(Long step) {
  const Long position = selected_ == nullptr ? 1 : selected_->Index() + step;
  if (position >= 1 && position <= Count()) ClickRow(position);
  return true;
}

bool DialogListView::OwnKey(const Stroke& stroke) {
  if (stroke.Code == static_cast<Integer>(Key::Up)) return ClickBeside(-1);
  if (stroke.Code == static_cast<Integer>(Key::Down)) return ClickBeside(1);
  if (stroke.Code != kSpaceKey || selected_ == nullptr) return false;
  CheckRow(selected_->Index());
  return true;
}

}  // namespace tessaria::memory
