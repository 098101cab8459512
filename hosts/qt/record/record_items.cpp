// The item grids of a RecordForm: read, checked and written with the row.
#include <algorithm>

#include "hosts/qt/record/record_form.h"
#include "tessaria/error.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

bool RecordForm::Parts::hasMore() const {
  return isMarked || std::any_of(items.begin(), items.end(), [](const QPointer<ItemGrid>& grid) {
           return grid && grid->isChanged();
         });
}

std::vector<Variant> RecordForm::Parts::parentsOf(const ItemGrid& grid) const {
  const host::RecordsetPtr present = rows();
  if (!present ||
      ((present->Bof() || present->Eof()) && present->EditMode() != host::EditMode::Add))
    return {};
  std::vector<Variant> parents;
  for (const QString& column : grid.parentColumns())
    parents.push_back(present->Fields().Item(fromQt(column))->Value());
  return parents;
}

void RecordForm::addItems(ItemGrid* items) {
  parts_->items << items;
  connect(items, &ItemGrid::changed, this, &RecordForm::itemsChanged);
  // What is being typed is noted too: the row may be left before it is settled.
  const auto fields = items->findChildren<TsText*>();
  for (const TsText* field : fields)
    connect(field, &TsText::changed, this, &RecordForm::itemsChanged);
  // The data control opens its rows while the form is shown for the first time.
  if (!fields.isEmpty())
    connect(fields.last(), &TsText::shown, this, &RecordForm::loadItems, Qt::QueuedConnection);
  if (parts_->rows()) loadItems();
}

/// Of a row that is not stored yet there are none.
void RecordForm::loadItems() {
  const auto parts = parts_;
  const QPointer<RecordForm> self(this);
  for (const auto& grid : QList<QPointer<ItemGrid>>(parts->items)) {
    if (!self || !parts->data) return;
    guarded(parts->form, [&] {
      if (!grid) return;
      const bool isStored = parts->rows() && !isNew();
      grid->load(parts->data->connection(),
                 isStored ? parts->parentsOf(*grid) : std::vector<Variant>());
    });
  }
}

void RecordForm::itemsChanged() {
  if (parts_->data && parts_->rows() && parts_->hasMore()) {
    parts_->data->beginFirstRow();
    parts_->data->markRowChanged();
  }
  lookSoon();
}

bool RecordForm::checkItems() {
  const QPointer<RecordForm> self(this);
  for (const auto& grid : QList<QPointer<ItemGrid>>(parts_->items))
    if (!self || (grid && !grid->check())) return false;
  return self;
}

/// Empty when nothing but the row is written.
RecordForm::TransactionHook RecordForm::wholeHook() {
  const auto parts = parts_;
  if (parts->items.isEmpty()) return parts->hook;
  return [parts](host::Connection& connection) {
    for (const auto& grid : parts->items)
      if (grid)
        grid->write(parts->data->connection(), parts->parentsOf(*grid), parts->overwritesItems);
    if (parts->hook) parts->hook(connection);
  };
}

}  // namespace tessaria::qt
