// What the operator does to a memory surface: focus, keys and mouse.
#include <algorithm>

#include "tessaria/memory/dialogs/surface_body.h"
#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

/// Whether the letter after a single "&" is this one, without regard to case.
bool HasMnemonic(StringView caption, char16_t letter) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    ++i;  // "&&" is one "&"
    if (caption[i] != u'&') return EqualNoCase(caption.substr(i, 1), StringView(&letter, 1));
  }
  return false;
}

}  // namespace

/// Runs the body on a widget that the operator can reach. A widget that takes the focus gets it
/// first.
template <class Target, class Body>
void SurfaceBody::ActOn(StringView name, Body&& body) {
  Act([&] {
    auto& target = Find<Target>(name);
    if (target.CanBeWorked() && TakeFocus(target)) body(target);
  });
}

/// Returns false when the widget that was left took the focus back.
bool SurfaceBody::TakeFocus(DialogItem& item) {
  if (!item.Part()->TakesFocus()) return true;
  form_->MoveFocusTo(item.Part());
  return form_->IsActive(*item.Part());
}

/// A widget that takes the focus gets it before it is clicked.
void SurfaceBody::ClickItem(DialogItem& item) {
  if (item.CanBeWorked() && TakeFocus(item) && !abandoned_) item.Click();
}

String SurfaceBody::Focused() const {
  const auto active = form_->ActiveControl();
  return active ? active->Name() : String();
}

// --- Keys ---------------------------------------------------------------------------------------

void SurfaceBody::HoldOn(DialogItem& item, const Stroke& stroke) {
  auto& port = item.Port();
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  const auto swallowed = [&](Integer key, Integer original) {
    return abandoned_ || (key == 0 && original != 0);
  };
  Raise(Port().OnKeyDown, code, shift);
  if (swallowed(code, stroke.Code)) return;
  Raise(port.OnKeyDown, code, shift);
  if (swallowed(code, stroke.Code)) return;
  if (stroke.Character != 0) {
    const Integer original = AnsiCode(stroke.Character);
    Integer character = original;
    Raise(Port().OnKeyPress, character);
    if (swallowed(character, original)) return;
    Raise(port.OnKeyPress, character);
    if (swallowed(character, original)) return;
  }
  if (!shown_ || !item.CanBeWorked() || item.OwnKey(stroke)) return;
  if (stroke.Code == static_cast<Integer>(Key::Enter)) PressDefault();
}

/// Presses the default button, which takes the focus first; false when there is none.
bool SurfaceBody::PressDefault() {
  for (const auto& entry : entries_) {
    const auto* button = dynamic_cast<const DialogButton*>(entry.Item.get());
    if (button == nullptr || !button->Default || !button->CanBeWorked()) continue;
    ClickItem(*entry.Item);
    return true;
  }
  return false;
}

void SurfaceBody::Mnemonic(char16_t letter) {
  Act([&] {
    for (const auto& entry : entries_) {
      if (entry.Item->CanBeWorked() && HasMnemonic(entry.Item->Mnemonic(), letter))
        return ClickItem(*entry.Item);
    }
  });
}

void SurfaceBody::Press(Key key, Integer shift) {
  Act([&] { form_->Press(key, shift); });
}

void SurfaceBody::Type(StringView text) {
  for (const char16_t character : String(text))
    Act([&] { form_->Type(StringView(&character, 1)); });
}

// --- Mouse --------------------------------------------------------------------------------------

void SurfaceBody::FocusOn(StringView name, Integer index) {
  Act([&] { TakeFocus(Item(name, index)); });
}

void SurfaceBody::Click(StringView name, Integer index) {
  Act([&] { ClickItem(Item(name, index)); });
}

void SurfaceBody::Choose(StringView name, Long row) {
  ActOn<DialogCombo>(name, [&](DialogCombo& combo) { combo.Choose(row); });
}

void SurfaceBody::ClickTab(StringView name, Long page) {
  Act([&] {
    auto& tabs = Find<DialogTabs>(name);
    if (tabs.CanBeWorked() && tabs.TabEnabled(page) && TakeFocus(tabs)) tabs.Choose(page);
  });
}

void SurfaceBody::ClickRow(StringView name, Long row) {
  ActOn<DialogListView>(name, [&](DialogListView& list) { list.ClickRow(row); });
}

void SurfaceBody::CheckRow(StringView name, Long row) {
  ActOn<DialogListView>(name, [&](DialogListView& list) { list.CheckRow(row); });
}

void SurfaceBody::DoubleClickRow(StringView name, Long row) {
  ActOn<DialogListView>(name, [&](DialogListView& list) { list.DoubleClickRow(row); });
}

void SurfaceBody::DoubleClick(StringView name) {
  Act([&] {
    auto& item = Item(name, -1);
    if (!item.CanBeWorked() || !TakeFocus(item)) return;
    if (auto* list = dynamic_cast<FileList*>(&item)) return Raise(list->OnDblClick);
    Raise(Find<DataGrid>(name).OnDblClick);
  });
}

void SurfaceBody::ClickMenu(StringView name, Long position) {
  ActOn<ToolBar>(name, [&](ToolBar& bar) {
    bar.Menu(position);  // raises an error when there is no such entry
    if (bar.ButtonEnabled()) Raise(bar.OnMenuClick, position);
  });
}

void SurfaceBody::ClickHeader(StringView name, Long column) {
  ActOn<DataGrid>(name, [&](DataGrid& grid) {
    if (grid.ShowsColumn(column)) Raise(grid.OnHeadClick, column);
  });
}

void SurfaceBody::ResizeColumn(StringView name, Long column, Long twips) {
  ActOn<DataGrid>(name, [&](DataGrid& grid) {
    if (!grid.ShowsColumn(column)) return;
    grid.Column(column).Width(static_cast<float>(twips));
    Raise(grid.OnColResize, column);
  });
}

void SurfaceBody::SelectRow(StringView name, Long row) {
  ActOn<DataGrid>(name, [&](DataGrid& grid) { grid.DataSource()->AbsolutePosition(row); });
}

void SurfaceBody::PickDay(StringView name, Date day) {
  ActOn<Calendar>(name, [&](Calendar& calendar) {
    calendar.Value(day);
    Raise(calendar.OnClick);
  });
}

void SurfaceBody::ChooseDrive(StringView name, const String& entry) {
  ActOn<DriveList>(name, [&](DriveList& drives) {
    drives.Drive(entry);
    Raise(drives.OnChange);
  });
}

void SurfaceBody::OpenFolder(StringView name, const String& path) {
  ActOn<FolderList>(name, [&](FolderList& folders) { folders.Path(path); });
}

void SurfaceBody::SelectFile(StringView name, const String& fileName) {
  ActOn<FileList>(name, [&](FileList& files) {
    const auto names = files.List();
    const auto at = std::find_if(names.begin(), names.end(), [&](const String& candidate) {
      return EqualNoCase(candidate, fileName);
    });
    files.Select(static_cast<Long>(at - names.begin()));
  });
}

}  // namespace tessaria::memory
