#include "tessaria/memory/controls.h"

#include "tessaria/conversion.h"

namespace tessaria::memory {
namespace {

constexpr Integer kSpace = 32;
constexpr Integer kEnter = 13;

}  // namespace

Label::Label(String name, const String& caption)
    : PartWith(std::move(name), u"Label"), foreColor_(host::colour::WindowText) {
  Caption(caption);
  Properties().Add(
      u"Caption", [this] { return Variant(caption_); },
      [this](const Variant& v) { Caption(CStr(v)); });
  Properties().Add(
      u"ForeColor", [this] { return Variant(static_cast<Long>(foreColor_)); },
      [this](const Variant& v) { foreColor_ = static_cast<Colour>(CLng(v)); });
  Properties().Add(
      u"FontBold", [this] { return Variant(fontBold_); },
      [this](const Variant& v) { fontBold_ = CBool(v); });
}

void Label::Caption(const String& text) {
  caption_.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && ++i == text.size()) break;
    caption_ += text[i];
  }
}

Button::Button(String name, String caption) : PartWith(std::move(name), u"CommandButton") {
  Properties().AddValue(u"Caption", std::move(caption));
}

void Button::Hold(const Stroke& stroke) {
  if (stroke.Code == kSpace || stroke.Code == kEnter) Click();
}

void Button::Click() {
  if (!CanBeUsed()) return;
  if (const auto click = OnClick) click();
}

Generic::Generic(String name, String typeName, Focus focus)
    : PartWith(std::move(name), std::move(typeName)), focus_(focus) {}

TabStrip::TabStrip(String name, Integer tabs)
    : PartWith(std::move(name), u"SSTab"), visible_(static_cast<std::size_t>(tabs), true) {
  Properties().Add(
      u"Tab", [this] { return Variant(tab_); }, [this](const Variant& v) { Tab(CInt(v)); });
}

std::size_t TabStrip::Index(Integer number) const {
  Live();
  if (number < 0 || static_cast<std::size_t>(number) >= visible_.size()) {
    throw HostError(errors::InvalidPropertyValue);
  }
  return static_cast<std::size_t>(number);
}

void TabStrip::Tab(Integer number) { tab_ = static_cast<Integer>(Index(number)); }

bool TabStrip::TabVisible(Integer number) const { return visible_[Index(number)]; }

void TabStrip::TabVisible(Integer number, bool visible) { visible_[Index(number)] = visible; }

DataControl::DataControl(String name, String typeName)
    : PartWith(std::move(name), std::move(typeName)) {
  Properties().Add(u"ConnectionString", [this] { return Variant(connectionString_); });
  Properties().Add(u"RecordSource", [this] { return Variant(recordSource_); });
  Properties().Add(u"RecordSet", [this] { return Variant(ObjectPtr(recordSet_)); });
}

void DataControl::Connect(host::ConnectionPtr connection, const String& recordSource) {
  connection_ = std::move(connection);
  connectionString_ = connection_->ConnectionString();
  if (connectionString_.empty()) connectionString_ = u"DSN=Memoria";
  recordSource_ = recordSource;
}

void DataControl::Refresh() {
  Live();
  ++refreshes_;
  if (!connection_) throw HostError(errors::InvalidConnection);
  if (recordSet_ && recordSet_->State() != host::state::Closed) recordSet_->Close();
  recordSet_ = connection_->OpenRecordset(recordSource_, host::CursorType::Static,
                                          host::LockType::Optimistic);
}

void DataControl::Load() {
  if (connection_ && !recordSource_.empty() && !recordSet_) Refresh();
}

}  // namespace tessaria::memory
