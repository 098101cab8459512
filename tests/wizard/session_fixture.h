// The whole wizard as an operator goes through it, from the property page and back.
#pragma once

#include "propertypage/property_page.h"
#include "tests/propertypage/page_fixture.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {

/// The page of the field codCliente in front of its tab "Browse"; its form has desCliente as well.
class SessionTest : public WizardTest {
 protected:
  enum class Hands { Mouse, Keyboard };

  SessionTest() {
    for (const auto& field : {code, description}) field->Let(u"TipoControle", Long{1});
    site.selected = {code};
    page->PropertyPage_SelectionChanged();
    surface->Show();
    surface->ClickTab(u"tabPropriedade", 1);
  }
  ~SessionTest() override {
    page.reset();
    State().frmMontaSql = nullptr;
    form->Close();
  }

  /// A click on the page's button, and the work in the wizard.
  void RunFromPage(const std::function<void()>& work) {
    WillWork(work);
    surface->Click(u"btnSql");
  }

  // --- The hands
  void Click(StringView name) {
    if (hands == Hands::Mouse) return WizardTest::Click(name);
    TabTo(name);
    window->Type(u" ");
  }
  void GoTo(wizard::Tab tab) {
    if (hands == Hands::Mouse) return WizardTest::GoTo(tab);
    TabTo(u"tabWizard");
    Walk([&] { return Front() == tab; }, tab < Front() ? memory::Key::Left : memory::Key::Right);
  }
  void Choose(StringView combo, StringView text) {
    if (hands == Hands::Mouse) return WizardTest::Choose(combo, text);
    TabTo(combo);
    for (Long row = Combo(combo).ListIndex(); row > 0; --row) window->Press(memory::Key::Up);
    Walk([&] { return Combo(combo).Text() == text; }, memory::Key::Down);
  }
  void Select(StringView list, StringView text) {
    if (hands == Hands::Mouse) return WizardTest::Select(list, text);
    TabTo(list);
    for (Long row = List(list).Count(); row > 0; --row) window->Press(memory::Key::Up);
    Walk([&] { return Selected(list) == text; }, memory::Key::Down);
  }
  void Check(StringView list, StringView text) {
    if (hands == Hands::Mouse) return WizardTest::Check(list, text);
    Select(list, text);
    window->Type(u" ");
  }
  void Type(StringView box, StringView text) {
    if (hands == Hands::Mouse) return WizardTest::Type(box, text);
    TabTo(box);
    window->Press(memory::Key::A, memory::modifier::Control);
    window->Type(text);
  }
  /// By its heading, or by the list of the columns.
  void ChooseColumn(Long position) {
    if (hands == Hands::Mouse) return window->ClickHeader(u"grdWizard", position);
    Choose(u"cmb4Coluna", Combo(u"cmb4Coluna").List(position));
  }
  void Pick(const Rows& tables) {
    for (const String& table : tables) {
      Select(u"lst1TabTodas", table);
      Click(u"btn1Inc");
    }
  }
  void Include(StringView table, const Rows& fields) {
    Choose(u"cmb3Tab", table);
    for (const String& field : fields) {
      Select(u"lst3Cmp", field);
      Click(u"btn3Inclui");
    }
  }
  void AddPiece(StringView table, StringView field) {
    Choose(u"cmb3Tab", table);
    Select(u"lst3Cmp", field);
    Click(u"btn3Concatena");
  }
  void ChooseLink(StringView parent, StringView child) {
    Choose(u"cmb2TabPai", parent);
    Choose(u"cmb2TabFilho", child);
  }
  void Link(StringView child, StringView childField, StringView parent, StringView parentField) {
    ChooseLink(parent, child);
    Select(u"lst2CmpPai", parentField);
    Select(u"lst2CmpFilho", childField);
    Click(u"btn2LnkAdiciona");
  }
  void Search(StringView table, StringView field, const Rows& how) {
    Choose(u"cmb6Tab", table);
    Select(u"lst6Cmp", field);
    Click(u"btn6CmpInc");
    Choose(u"cmb6TipoBusca", how[0]);
    Choose(u"cmb6Objeto", how[1]);
    Choose(u"cmb6TipoDado", how[2]);
  }
  void OrderBy(StringView field) {
    Select(u"lst5CmpTodos", field);
    Click(u"btn5Inc");
  }
  void TakeField(StringView field, StringView button) {
    Select(u"lst7Cmp", field);
    Click(button);
  }

  // --- What the page has
  String PageText(StringView box) { return surface->Find<host::DialogTextBox>(box).Box().Text(); }
  Browse& Definition() { return *code->Get(u"Browse").As<Browse>(); }
  /// Field, caption, mask, width and visibility of each column.
  Rows Columns() {
    Rows columns;
    ListaColunas& list = Definition().cgrColGrid();
    for (Long i = 1; i <= list.Count(); ++i) {
      const auto column = list.Item(i);
      columns.push_back(column->Campo() + u"|" + column->Caption() + u"|" + column->Mascara() +
                        u"|" + CStr(column->Width()) + u"|" + (column->Visible() ? u"1" : u"0"));
    }
    return columns;
  }
  Rows ReturnFields() {
    Rows fields;
    for (Long i = 1; i <= Definition().Outros().Count(); ++i)
      fields.push_back(Definition().Outros().Item(i)->Nome());
    return fields;
  }

  Hands hands = Hands::Mouse;
  std::shared_ptr<memory::Form> form =
      memory::Form::Create(u"frmPedido", memory::Form::Mode::Design);
  std::shared_ptr<memory::TsText> code = form->Add<memory::TsText>(u"codCliente");
  std::shared_ptr<memory::TsText> description = form->Add<memory::TsText>(u"desCliente");
  PageSite site;
  std::shared_ptr<memory::Surface> surface = desktop->MakeSurface(tsTextProperty::Description());
  std::unique_ptr<tsTextProperty> page = std::make_unique<tsTextProperty>(surface, site);

 private:
  void TabTo(StringView name) {
    Walk([&] { return window->Focused() == name; }, memory::Key::Tab);
  }
  void Walk(const std::function<bool()>& arrived, memory::Key key) {
    for (int steps = 0; !arrived() && steps < 200; ++steps) window->Press(key);
    EXPECT_TRUE(arrived());
  }
};

}  // namespace tessaria::test
