// What the operator does to a memory dialog: focus, keys and mouse.
#include <algorithm>

#include "tessaria/memory/dialogs/dialog.h"
#include "tessaria/text.h"

namespace tessaria::memory {

template <class Body>
void Dialog::Act(Body&& body) {
  if (!shown_ || world_->Script.InFront() != this)
    return world_->Script.Fault(u"The window " + String(Name()) + u" is not in front");
  const auto alive = shared_from_this();
  form_->RunEvent(std::forward<Body>(body));
}

/// Runs the body on a widget that the operator can reach. A widget that takes the focus gets it
/// first.
template <class Target, class Body>
void Dialog::ActOn(StringView name, Body&& body) {
  Act([&] {
    auto& target = Find<Target>(name);
    if (target.CanBeWorked() && TakeFocus(target)) body(target);
  });
}

/// Returns false when the widget that was left took the focus back.
bool Dialog::TakeFocus(DialogItem& item) {
  if (!item.Part()->TakesFocus()) return true;
  form_->MoveFocusTo(item.Part());
  return form_->IsActive(*item.Part());
}

String Dialog::Focused() const {
  const auto active = form_->ActiveControl();
  return active ? active->Name() : String();
}

// --- Keys ---------------------------------------------------------------------------------------

void Dialog::HoldOn(DialogItem& item, const Stroke& stroke) {
  auto& port = item.Port();
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  const auto swallowed = [&](Integer key, Integer original) {
    return abandoned_ || (key == 0 && original != 0);
  };
  Raise(OnKeyDown, code, shift);
  if (swallowed(code, stroke.Code)) return;
  Raise(port.OnKeyDown, code, shift);
  if (swallowed(code, stroke.Code)) return;
  if (stroke.Character != 0) {
    const Integer original = AnsiCode(stroke.Character);
    Integer character = original;
    Raise(OnKeyPress, character);
    if (swallowed(character, original)) return;
    Raise(port.OnKeyPress, character);
    if (swallowed(character, original)) return;
  }
  if (shown_) item.OwnKey(stroke);
}

void Dialog::Press(Key key, Integer shift) {
  Act([&] { form_->Press(key, shift); });
}

void Dialog::Type(StringView text) {
  for (const char16_t character : String(text))
    Act([&] { form_->Type(StringView(&character, 1)); });
}

// --- Mouse --------------------------------------------------------------------------------------

void Dialog::FocusOn(StringView name, Integer index) {
  Act([&] { TakeFocus(Item(name, index)); });
}

void Dialog::Click(StringView name, Integer index) {
  Act([&] {
    auto& item = Item(name, index);
    if (!item.CanBeWorked() || !TakeFocus(item)) return;
    if (auto* bar = dynamic_cast<ToolBar*>(&item)) {
      if (bar->ButtonEnabled()) Raise(bar->OnButtonClick);
    } else {
      Raise(Find<DialogButton>(name, index).OnClick);
    }
  });
}

void Dialog::DoubleClick(StringView name) {
  Act([&] {
    auto& item = Item(name, -1);
    if (!item.CanBeWorked() || !TakeFocus(item)) return;
    if (auto* list = dynamic_cast<FileList*>(&item)) return Raise(list->OnDblClick);
    Raise(Find<DataGrid>(name).OnDblClick);
  });
}

void Dialog::ClickMenu(StringView name, Long position) {
  ActOn<ToolBar>(name, [&](ToolBar& bar) {
    bar.Menu(position);  // raises an error when there is no such entry
    if (bar.ButtonEnabled()) Raise(bar.OnMenuClick, position);
  });
}

void Dialog::ClickHeader(StringView name, Long column) {
  ActOn<DataGrid>(name, [&](DataGrid& grid) {
    grid.Column(column);
    Raise(grid.OnHeadClick, column);
  });
}

void Dialog::SelectRow(StringView name, Long row) {
  ActOn<DataGrid>(name, [&](DataGrid& grid) { grid.DataSource()->AbsolutePosition(row); });
}

void Dialog::PickDay(StringView name, Date day) {
  ActOn<Calendar>(name, [&](Calendar& calendar) {
    calendar.Value(day);
    Raise(calendar.OnClick);
  });
}

void Dialog::ChooseDrive(StringView name, const String& entry) {
  ActOn<DriveList>(name, [&](DriveList& drives) {
    drives.Drive(entry);
    Raise(drives.OnChange);
  });
}

void Dialog::OpenFolder(StringView name, const String& path) {
  ActOn<FolderList>(name, [&](FolderList& folders) { folders.Path(path); });
}

void Dialog::SelectFile(StringView name, const String& fileName) {
  ActOn<FileList>(name, [&](FileList& files) {
    const auto names = files.List();
    const auto at = std::find_if(names.begin(), names.end(), [&](const String& candidate) {
      return EqualNoCase(candidate, fileName);
    });
    files.Select(static_cast<Long>(at - names.begin()));
  });
}

void Dialog::Resize(Long width, Long height) {
  Act([&] { Size(width, height); });
}

void Dialog::CloseWindow() {
  Act([&] { OnCloseRequest ? Raise(OnCloseRequest) : Hide(); });
}

void Dialog::Reactivate() {
  Act([&] { Raise(OnActivate); });
}

}  // namespace tessaria::memory
