#include "tessaria/memory/dialogs/surface_body.h"

#include <utility>

#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

using host::WidgetKind;
using Focus = DialogPart::Focus;

/// A separate window token for each surface, different from those of controls.
Long NextWindow() {
  static thread_local Long last = 0x10000;
  return ++last;
}

}  // namespace

SurfaceBody::SurfaceBody(std::shared_ptr<DialogWorld> world,
                         const host::DialogDescription& description)
    : world_(std::move(world)),
      description_(description),
      form_(memory::Form::Create(String(description.Name))),
      window_(NextWindow()) {}

SurfaceBody::~SurfaceBody() { form_->Close(); }

// --- Building -----------------------------------------------------------------------------------

void SurfaceBody::Build() {
  for (const auto& widget : description_.Widgets) {
    entries_.push_back({&widget, MakeItem(widget)});
    PutInto(*entries_.back().Item->Part(), widget);
  }
}

SurfaceBody::ItemPtr SurfaceBody::MakeItem(const host::WidgetDescription& widget) {
  const auto part = [&](const char16_t* typeName, Focus focus) {
    return AddPart(widget, typeName, focus);
  };
  switch (widget.Kind) {
    case WidgetKind::Label:
      return std::make_unique<DialogLabel>(part(u"Label", Focus::Refused), widget.Caption);
    case WidgetKind::CommandButton:
      return std::make_unique<DialogButton>(part(u"CommandButton", Focus::Taken), widget.Caption);
    case WidgetKind::Display:
      return std::make_unique<DialogDisplay>(part(u"TextBox", Focus::Refused));
    case WidgetKind::TsText:
      return std::make_unique<DialogField>(AddField(widget));
    case WidgetKind::DataGrid:
      return std::make_unique<DataGrid>(part(u"DataGrid", Focus::Taken),
                                        DataGrid::HiddenColumns::Gone);
    case WidgetKind::ColumnPreview:
      return std::make_unique<DataGrid>(part(u"DataGrid", Focus::Taken),
                                        DataGrid::HiddenColumns::Dimmed);
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
    default:
      return MakeChoiceItem(widget);
  }
}

/// Boxes with text, and what the operator chooses from.
SurfaceBody::ItemPtr SurfaceBody::MakeChoiceItem(const host::WidgetDescription& widget) {
  const auto part = [&](const char16_t* typeName, Focus focus = Focus::Taken) {
    return AddPart(widget, typeName, focus);
  };
  switch (widget.Kind) {
    case WidgetKind::TextBox:
    case WidgetKind::MultiLineText:
      return std::make_unique<DialogTextBox>(AddTextBox(widget));
    case WidgetKind::ComboBox:
      return std::make_unique<DialogCombo>(part(u"ComboBox"), DialogCombo::Texts::Any, widget.Rows);
    case WidgetKind::DropDownList:
      return std::make_unique<DialogCombo>(part(u"ComboBox"), DialogCombo::Texts::RowsOnly,
                                           widget.Rows);
    case WidgetKind::CheckBox:
      return std::make_unique<DialogCheckBox>(part(u"CheckBox"), widget.Caption);
    case WidgetKind::OptionButton:
      return std::make_unique<DialogOption>(part(u"OptionButton"), widget.Caption,
                                            OptionsOf(widget));
    case WidgetKind::Frame:
      return std::make_unique<DialogFrame>(part(u"Frame", Focus::Refused), widget.Caption);
    case WidgetKind::TabStrip:
      return std::make_unique<DialogTabs>(part(u"SSTab"), widget.Rows);
    case WidgetKind::ListView:
      return std::make_unique<DialogListView>(part(u"ListView"), DialogListView::Checks::None);
    case WidgetKind::CheckList:
      return std::make_unique<DialogListView>(part(u"ListView"), DialogListView::Checks::EachRow);
    default:
      throw HostError(errors::InvalidArgument);
  }
}

std::shared_ptr<OptionGroup> SurfaceBody::OptionsOf(const host::WidgetDescription& widget) {
  auto& group = options_[String(widget.Container)];
  if (!group) group = std::make_shared<OptionGroup>();
  return group;
}

void SurfaceBody::PutInto(memory::Part& part, const host::WidgetDescription& widget) {
  if (widget.Container.empty()) return;
  part.Settings().Container = Item(widget.Container, -1).Part()->AsWidget();
  part.Settings().Page = widget.Page;
}

std::shared_ptr<DialogPart> SurfaceBody::AddPart(const host::WidgetDescription& widget,
                                                 const String& typeName, Focus focus) {
  auto part = form_->Add<DialogPart>(String(widget.Name), typeName, focus);
  part->OnHold = [this, name = widget.Name, index = widget.Index](const Stroke& stroke) {
    HoldOn(Item(name, index), stroke);
  };
  return part;
}

/// A box gets its keys itself: the surface only sees them first.
std::shared_ptr<TextBoxPart> SurfaceBody::AddTextBox(const host::WidgetDescription& widget) {
  auto part = form_->Add<TextBoxPart>(String(widget.Name));
  auto& box = part->Box();
  box.MultiLine(widget.Kind == WidgetKind::MultiLineText);
  box.Surface.OnKeyDown = [this](Integer& code, Integer& shift) {
    Raise(Port().OnKeyDown, code, shift);
  };
  box.Surface.OnKeyPress = [this](Integer& code) { Raise(Port().OnKeyPress, code); };
  box.OnEnterKey = [this] { PressDefault(); };
  return part;
}

/// So does a control. Enter reaches the default button whatever the control's mask says.
std::shared_ptr<TsText> SurfaceBody::AddField(const host::WidgetDescription& widget) {
  auto field = form_->Add<TsText>(String(widget.Name));
  auto& surface = field->txtEdit().Surface;
  surface.OnKeyDown = [this, inner = surface.OnKeyDown](Integer& code, Integer& shift) {
    Raise(Port().OnKeyDown, code, shift);
    if (code != 0) inner(code, shift);
  };
  surface.OnKeyPress = [this, inner = surface.OnKeyPress](Integer& code) {
    Raise(Port().OnKeyPress, code);
    if (code == static_cast<Integer>(Key::Enter) && PressDefault()) code = 0;
    if (code != 0) inner(code);
  };
  return field;
}

// --- Life ---------------------------------------------------------------------------------------

DialogItem& SurfaceBody::Item(StringView name, Integer index) {
  for (const auto& entry : entries_) {
    if (entry.Description->Index == index && EqualNoCase(entry.Description->Name, name))
      return *entry.Item;
  }
  throw HostError(errors::ControlNotFound);
}

void SurfaceBody::Connect(host::ConnectionPtr connection) {
  form_->DbForm(Variant(std::move(connection)));
}

void SurfaceBody::ShowWidgets() {
  shown_ = true;
  form_->Show();
}

void SurfaceBody::HideWidgets() {
  shown_ = false;
  form_->Hide();
}

void SurfaceBody::Abandon() {
  abandoned_ = true;
  for (const auto& entry : entries_) entry.Item->Abandon();
  HideWidgets();
}

}  // namespace tessaria::memory
