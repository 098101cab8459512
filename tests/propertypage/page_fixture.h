// A form at design time, and the property page of one of its fields, without a screen.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "propertypage/property_page.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/dialogs/surface.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tests/support/test_desktop.h"

namespace tessaria::test {

/// The frame around the page.
class PageSite final : public host::PropertyPageSite {
 public:
  Long SelectedCount() const override { return static_cast<Long>(selected.size()); }
  std::shared_ptr<host::TsTextWidget> Selected(Long position) const override {
    if (position < 0 || position >= SelectedCount()) throw HostError(errors::SubscriptOutOfRange);
    return selected[static_cast<std::size_t>(position)];
  }
  bool Changed() const override { return changed; }
  void Changed(bool isChanged) override { changed = isChanged; }

  std::vector<std::shared_ptr<host::TsTextWidget>> selected;
  bool changed = false;
};

/// The form has the fields codCliente, desCliente and txtValor, two labels, two buttons and two
/// data controls. The page is that of desCliente until another field is selected.
class PageTest : public testing::Test {
 protected:
  PageTest() {
    for (const auto* label : {u"lblCliente", u"lblValor"}) form->Add<memory::Label>(label);
    for (const auto* button : {u"cmdGravar", u"cmdCancelar"}) form->Add<memory::Button>(button);
    for (const auto* control : {u"dcPedido", u"dcItens"}) form->Add<memory::DataControl>(control);
  }
  ~PageTest() override { form->Close(); }

  /// Opens a page for these fields, the last one clicked last.
  void Open(std::vector<std::shared_ptr<memory::TsText>> fields) {
    page.reset();
    site.selected.assign(fields.begin(), fields.end());
    surface = desktop->MakeSurface(tsTextProperty::Description());
    page = std::make_unique<tsTextProperty>(surface, site);
    page->PropertyPage_SelectionChanged();
    surface->Show();
  }
  void Apply() { page->PropertyPage_ApplyChanges(); }

  host::TextBox& Box(StringView name) { return surface->Find<host::DialogTextBox>(name).Box(); }
  String Text(StringView box) { return Box(box).Text(); }
  host::DialogCombo& Combo(StringView name) { return surface->Find<host::DialogCombo>(name); }
  host::DialogTabs& Tabs() { return surface->Find<host::DialogTabs>(u"tabPropriedade"); }
  Integer Checked(StringView name) { return surface->Find<host::DialogCheckBox>(name).Value(); }
  bool IsSet(StringView name) { return surface->Find<host::DialogOption>(name).Value(); }
  bool IsEnabled(StringView name) { return surface->Find<host::DialogWidget>(name).Enabled(); }
  std::vector<String> Rows(StringView list) {
    std::vector<String> rows;
    rows.reserve(static_cast<std::size_t>(Combo(list).ListCount()));
    for (Long row = 0; row < Combo(list).ListCount(); ++row) rows.push_back(Combo(list).List(row));
    return rows;
  }
  void Choose(StringView list, StringView text) {
    for (Long row = 0; row < Combo(list).ListCount(); ++row)
      if (Combo(list).List(row) == text) return surface->Choose(list, row);
    ADD_FAILURE() << "no such row";
  }
  /// Replaces the text of a box as an operator does.
  void Type(StringView box, StringView text) {
    surface->FocusOn(box);
    Box(box).SelStart(0);
    Box(box).SelLength(Len(Box(box).Text()));
    if (text.empty()) return surface->Press(memory::Key::Delete);
    surface->Type(text);
  }

  static Browse& DefinitionOf(memory::TsText& field) { return *field.Get(u"Browse").As<Browse>(); }
  static Pesquisa& SearchesOf(memory::TsText& field) {
    return *field.Get(u"Pesquisa").As<Pesquisa>();
  }
  static String TextOf(memory::TsText& field, const String& property) {
    return CStr(field.Get(property));
  }

  memory::Application app;
  TestDesktop desktop;
  std::shared_ptr<memory::Form> form =
      memory::Form::Create(u"frmPedido", memory::Form::Mode::Design);
  std::shared_ptr<memory::TsText> code = form->Add<memory::TsText>(u"codCliente");
  std::shared_ptr<memory::TsText> description = form->Add<memory::TsText>(u"desCliente");
  std::shared_ptr<memory::TsText> value = form->Add<memory::TsText>(u"txtValor");
  PageSite site;
  std::shared_ptr<memory::Surface> surface;
  std::unique_ptr<tsTextProperty> page;
};

}  // namespace tessaria::test
