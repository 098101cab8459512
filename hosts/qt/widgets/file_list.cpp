#include "hosts/qt/widgets/file_list.h"

#include <QFocusEvent>
#include <algorithm>

#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

// --- Names --------------------------------------------------------------------------------------

void FileNames::open(const QString& path) {
  const QString folder = requireFolder(path);
  if (folder == path_) return;
  path_ = folder;
  fill();
}

void FileNames::setPattern(const QString& pattern) {
  pattern_ = pattern;
  fill();
}

void FileNames::listHidden(Hidden hidden) {
  const QString kept = selected();
  hidden_ = hidden;
  fill();
  const auto same = findItems(kept, Qt::MatchExactly);
  if (!kept.isEmpty() && !same.isEmpty()) setCurrentItem(same.first());
}

/// A file that has the focus without being selected is not chosen.
QString FileNames::selected() const {
  const auto items = selectedItems();
  return items.isEmpty() ? QString() : items.first()->text();
}

void FileNames::focusInEvent(QFocusEvent* event) {
  QListWidget::focusInEvent(event);
  const Qt::FocusReason reason = event->reason();
  const bool byKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                     reason == Qt::ShortcutFocusReason;
  if (byKey && count() > 0 && selectedItems().isEmpty()) setCurrentRow(std::max(currentRow(), 0));
}

void FileNames::fill() {
  clear();
  if (!path_.isEmpty()) addItems(filesIn(path_, pattern_, hidden_));
}

// --- Port ---------------------------------------------------------------------------------------

FileListItem::FileListItem(FileNames& list, const DialogGate& gate)
    : DialogItemOf(list, gate), list_(list) {
  list.setUniformItemSizes(true);
  QObject::connect(&list, &QListWidget::itemDoubleClicked, &list,
                   [this] { this->gate().raise(OnDblClick); });
}

String FileListItem::Path() const { return fromQt(list_.path()); }
void FileListItem::Path(const String& path) { list_.open(toQt(path)); }
String FileListItem::Pattern() const { return fromQt(list_.pattern()); }
void FileListItem::Pattern(const String& pattern) { list_.setPattern(toQt(pattern)); }

std::vector<String> FileListItem::List() const {
  std::vector<String> names;
  names.reserve(static_cast<std::size_t>(list_.count()));
  for (int i = 0; i < list_.count(); ++i) names.push_back(fromQt(list_.item(i)->text()));
  return names;
}

String FileListItem::FileName() const { return fromQt(list_.selected()); }

void FileListItem::Select(Long position) {
  if (position < 0 || position >= list_.count()) throw HostError(errors::SubscriptOutOfRange);
  list_.setCurrentRow(position);
}

}  // namespace tessaria::qt
