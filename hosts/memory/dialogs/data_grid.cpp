#include "tessaria/memory/dialogs/data_grid.h"

#include "tessaria/format.h"
#include "tessaria/text.h"

namespace tessaria::memory {
class DataGrid::FieldColumn final : public host::GridColumn {
 public:
  explicit FieldColumn(String field = {}) : field_(std::move(field)), caption_(field_) {}

  String Caption() const override { return caption_; }
  void Caption(const String& text) override { caption_ = text; }
  float Width() const override { return width_; }
  void Width(float twips) override { width_ = twips; }
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override { visible_ = visible; }
  String DataField() const override { return field_; }
  void DataField(const String& field) override { field_ = field; }
  String Format() const override { return format_; }
  void Format(const String& pattern) override { format_ = pattern; }

 private:
  String field_;
  String caption_;
  float width_ = NewWidth;
  bool visible_ = true;
  String format_;
};

DataGrid::DataGrid(std::shared_ptr<memory::Part> part, HiddenColumns hidden)
    : DialogItemOf(std::move(part)), hidden_(hidden) {
  AddColumn(0);
}

void DataGrid::DataSource(host::RecordsetPtr rows) {
  rows_ = std::move(rows);
  const bool hasRows = rows_ && rows_->State() != host::state::Closed;
  if (!hasRows && !hadRows_) return;
  hadRows_ = true;
  columns_.clear();
  if (!hasRows) return;
  for (Long i = 0; i < rows_->Fields().Count(); ++i) {
    columns_.push_back(std::make_unique<FieldColumn>(rows_->Fields().Item(i)->Name()));
  }
}

std::ptrdiff_t DataGrid::Index(Long position) const {
  if (position < 0 || position >= ColumnCount()) throw HostError(errors::SubscriptOutOfRange);
  return position;
}

host::GridColumn& DataGrid::Column(Long position) {
  return *columns_[static_cast<std::size_t>(Index(position))];
}

bool DataGrid::ShowsColumn(Long position) {
  return Column(position).Visible() || hidden_ == HiddenColumns::Dimmed;
}

host::GridColumn& DataGrid::AddColumn(Long position) {
  const auto at = columns_.begin() + (position == ColumnCount() ? position : Index(position));
  return **columns_.insert(at, std::make_unique<FieldColumn>());
}

void DataGrid::RemoveColumn(Long position) {
  if (keepsLastColumn && ColumnCount() == 1) throw HostError(errors::InvalidPropertyValue);
  columns_.erase(columns_.begin() + Index(position));
}

bool DataGrid::OwnKey(const Stroke& stroke) {
  if (!rows_ || stroke.Shift != modifier::None) return false;
  const Long row = rows_->AbsolutePosition();
  if (stroke.Code == static_cast<Integer>(Key::Up) && row > 1) rows_->MovePrevious();
  if (stroke.Code == static_cast<Integer>(Key::Down) && row < rows_->RecordCount())
    rows_->MoveNext();
  return false;
}

std::vector<String> DataGrid::Captions() {
  std::vector<String> captions;
  for (const auto& column : columns_) captions.push_back(column->Caption());
  return captions;
}

String DataGrid::CellText(Long position) {
  const auto& column = Column(position);
  if (!rows_) return {};
  for (Long i = 0; i < rows_->Fields().Count(); ++i) {
    const auto field = rows_->Fields().Item(i);
    if (EqualNoCase(field->Name(), column.DataField()))
      return Format(field->Value(), column.Format());
  }
  return {};
}

}  // namespace tessaria::memory
