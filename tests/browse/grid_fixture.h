// A list without a lookup around it.
#pragma once

#include <functional>

#include "browse/grid_form.h"
#include "tests/browse/browse_fixture.h"

namespace tessaria::test {

class GridForm : public BrowseTest {
 protected:
  using Script = memory::ModalScript::Script;

  void Connect() {
    bool ok = false;
    form.ConectGrid(u"Select codigo, nome, cidade From clientes", ok);
    ASSERT_TRUE(ok);
  }
  /// Adds the entries of `searches` searches, the separator and the entry for all rows.
  void FillMenu(Long searches) {
    for (Long i = 1; i <= searches; ++i) Bar().AddMenu({u"Busca " + CStr(Variant(i)), {}});
    Bar().AddMenu({u"-", {}});
    Bar().AddMenu({u"Traz Todos os Registros", {}});
  }
  void AddSearches(Long count) {
    form.Pesquisa = std::make_shared<Pesquisa>();
    for (Long i = 1; i <= count; ++i)
      form.Pesquisa->Add(0, u"Busca " + CStr(Variant(i)), u"nome", 8, 1, u"", 2000, 0, false, false,
                         0, 0, u"");
    FillMenu(count);
  }
  void Show(Script script) {
    desktop->WillShow(u"frmBrowse", std::move(script));
    form.ShowModal();
  }
  void ShowAndLeave() {
    Show([](memory::Dialog& shown) { shown.CloseWindow(); });
  }
  void ShowMenuClick(Long position) {
    Show([position](memory::Dialog& shown) {
      shown.ClickMenu(u"barBrowse", position);
      shown.CloseWindow();
    });
  }
  /// The captions of the prompts that an action on the list opens; each prompt is cancelled.
  std::vector<String> PromptsOf(const Script& act) {
    std::vector<String> captions;
    Show([&](memory::Dialog& shown) {
      const std::size_t before = desktop->Shown().size();
      desktop->WillShowOthers([&](memory::Dialog& prompt) {
        captions.push_back(prompt.Caption());
        prompt.Click(u"btnCancelar");
      });
      act(shown);
      desktop->WillShowOthers(nullptr);
      EXPECT_EQ(desktop->Shown().size(), before + captions.size());
      if (shown.IsShown()) shown.CloseWindow();
    });
    return captions;
  }
  /// Runs the first search, whose statement the database refuses.
  void RefuseSearch(memory::Dialog& shown) {
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) {
      prompt.Type(u"x");
      prompt.Click(u"btnOk");
    });
    connection->FailNext(HostError(errors::ProviderError, u"recusado"));
    shown.ClickMenu(u"barBrowse", 1);
    EXPECT_EQ(Grid().DataSource(), nullptr);
  }
  static bool CanConfirm(memory::Dialog& shown) {
    return shown.Find<host::DialogButton>(u"btnConfirmar").Enabled();
  }
  memory::ToolBar& Bar() { return form.Window().Find<memory::ToolBar>(u"barBrowse"); }
  memory::DataGrid& Grid() { return form.Window().Find<memory::DataGrid>(u"grdBrowse"); }

  frmBrowse form;
};

}  // namespace tessaria::test
