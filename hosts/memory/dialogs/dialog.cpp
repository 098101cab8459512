#include "tessaria/memory/dialogs/dialog.h"

#include <utility>

#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

using host::WidgetKind;
using Focus = DialogPart::Focus;

/// A separate window token for each dialog, different from those of controls.
Long NextWindow() {
  static thread_local Long last = 0x10000;
  return ++last;
}

}  // namespace

host::DialogPtr Dialog::Make(std::shared_ptr<DialogWorld> world,
                             const host::DialogDescription& description) {
  const std::shared_ptr<Dialog> dialog(new Dialog(std::move(world), description));
  dialog->Build();
  // The handle is separate from the window, which outlives it inside its modal loop.
  return {dialog.get(), [dialog](host::Dialog*) { dialog->Abandon(); }};
}

Dialog::Dialog(std::shared_ptr<DialogWorld> world, const host::DialogDescription& description)
    : world_(std::move(world)),
      description_(description),
      form_(memory::Form::Create(String(description.Name))),
      caption_(description.Caption),
      width_(world_->DialogWidth),
      height_(world_->DialogHeight),
      window_(NextWindow()) {}

Dialog::~Dialog() { form_->Close(); }

// --- Building -----------------------------------------------------------------------------------

void Dialog::Build() {
  for (const auto& widget : description_.Widgets) entries_.push_back({&widget, MakeItem(widget)});
}

Dialog::ItemPtr Dialog::MakeItem(const host::WidgetDescription& widget) {
  const auto part = [&](const char16_t* typeName, Focus focus) {
    return AddPart(widget, typeName, focus);
  };
  switch (widget.Kind) {
    case WidgetKind::Label:
      return std::make_unique<DialogLabel>(part(u"Label", Focus::Refused), widget.Caption);
    case WidgetKind::CommandButton:
      return std::make_unique<DialogButton>(part(u"CommandButton", Focus::Taken), widget.Caption);
    case WidgetKind::TextBox:
      return std::make_unique<DialogDisplay>(part(u"TextBox", Focus::Refused));
    case WidgetKind::TsText:
      return std::make_unique<DialogField>(AddField(widget));
    case WidgetKind::DataGrid:
      return std::make_unique<DataGrid>(part(u"DataGrid", Focus::Taken));
    case WidgetKind::ToolBar:
      return std::make_unique<ToolBar>(part(u"Toolbar", Focus::Refused));
    case WidgetKind::Calendar:
      return std::make_unique<Calendar>(part(u"Calendar", Focus::Taken));
    case WidgetKind::DriveList:
      return std::make_unique<DriveList>(part(u"DriveListBox", Focus::Taken), world_->Files);
    case WidgetKind::FolderList:
      return std::make_unique<FolderList>(part(u"DirListBox", Focus::Taken), world_->Files);
    case WidgetKind::FileList:
      return std::make_unique<FileList>(part(u"FileListBox", Focus::Taken), world_->Files);
  }
  throw HostError(errors::InvalidArgument);
}

std::shared_ptr<DialogPart> Dialog::AddPart(const host::WidgetDescription& widget,
                                            const String& typeName, Focus focus) {
  auto part = form_->Add<DialogPart>(String(widget.Name), typeName, focus);
  part->OnHold = [this, name = widget.Name, index = widget.Index](const Stroke& stroke) {
    HoldOn(Item(name, index), stroke);
  };
  return part;
}

/// A control gets its keys itself: the window only sees them first.
std::shared_ptr<TsText> Dialog::AddField(const host::WidgetDescription& widget) {
  auto field = form_->Add<TsText>(String(widget.Name));
  auto& surface = field->txtEdit().Surface;
  surface.OnKeyDown = [this, inner = surface.OnKeyDown](Integer& code, Integer& shift) {
    Raise(OnKeyDown, code, shift);
    if (code != 0) inner(code, shift);
  };
  surface.OnKeyPress = [this, inner = surface.OnKeyPress](Integer& code) {
    Raise(OnKeyPress, code);
    if (code != 0) inner(code);
  };
  return field;
}

DialogItem& Dialog::Item(StringView name, Integer index) {
  for (const auto& entry : entries_) {
    if (entry.Description->Index == index && EqualNoCase(entry.Description->Name, name))
      return *entry.Item;
  }
  throw HostError(errors::ControlNotFound);
}

host::DialogWidget& Dialog::Widget(StringView name, Integer index) {
  return Item(name, index).Port();
}

void Dialog::dbForm(host::ConnectionPtr connection) {
  form_->DbForm(Variant(std::move(connection)));
}

// --- Life ---------------------------------------------------------------------------------------

void Dialog::ShowModal() {
  const auto alive = shared_from_this();
  const bool isFirst = !std::exchange(wasShown_, true);
  shown_ = true;
  form_->Show();
  form_->RunEvent([&] {
    if (isFirst) Raise(OnResize);
    Raise(OnActivate);
  });
  WorkInFront();
  if (Dialog* below = world_->Script.InFront(); below && below->shown_) below->Reactivate();
}

/// Keeps a window in front until its script ends, even with an exception.
class Dialog::InFront {
 public:
  explicit InFront(Dialog& dialog) : dialog_(dialog) {
    dialog.world_->Script.Opened(dialog, String(dialog.Name()));
  }
  InFront(const InFront&) = delete;
  InFront& operator=(const InFront&) = delete;
  ~InFront() {
    dialog_.Hide();
    dialog_.world_->Script.Closed();
  }

 private:
  Dialog& dialog_;
};

void Dialog::WorkInFront() {
  const InFront inFront(*this);
  const String name(Name());
  const auto script = world_->Script.Take(name);
  if (!script) return;
  script(*this);
  if (shown_) world_->Script.Fault(u"The script left the window " + name + u" open");
}

void Dialog::Hide() {
  shown_ = false;
  form_->Hide();
}

void Dialog::Abandon() {
  abandoned_ = true;
  Hide();
}

void Dialog::Size(Long width, Long height) {
  if (width == width_ && height == height_) return;
  width_ = width;
  height_ = height;
  if (shown_) Raise(OnResize);
}

}  // namespace tessaria::memory
