// One prompt of a search, operated by a script.
#pragma once

#include "browse/search_prompt.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/browse/browse_fixture.h"

namespace tessaria::test {

/// One search; by default for a name.
struct Search {
  String Table = u"clientes";
  String Campo = u"nome";
  Long Tipo = 8;
  Long Like = 3;
  String Caption = u"Nome";
  Integer Width = 2000;
  bool Completes = false;
  String Mascara;
  Integer MaxLength = 0;
  bool PromptInclude = false;
  String Where = u"ativo = 1";
  bool CampoPronto = false;
};

class SearchPrompt : public BrowseTest {
 protected:
  bool Ask(const Search& s, memory::ModalScript::Script script) {
    desktop->WillShow(u"frmTsPesquisa", std::move(script));
    return mdlObjTxt::tsMostraFormPesquisa(s.Table, s.Campo, s.Tipo, s.Like, s.Caption, s.Width,
                                           s.Completes, s.Mascara, s.MaxLength, s.PromptInclude,
                                           s.Where, clause, s.CampoPronto);
  }
  /// The condition for a typed answer.
  String ClauseOf(const Search& s, StringView typed) {
    clause.clear();
    EXPECT_TRUE(Ask(s, [&](memory::Dialog& prompt) {
      prompt.Type(typed);
      prompt.Click(u"btnOk");
    }));
    return clause;
  }
  /// Inspects a prompt, which is then cancelled.
  void Look(const Search& s, const std::function<void(memory::Dialog&, tsText&)>& look) {
    EXPECT_FALSE(Ask(s, [&](memory::Dialog& prompt) {
      look(prompt, *prompt.Field(u"editPesquisa"));
      prompt.Click(u"btnCancelar");
    }));
  }
  static bool OkIsEnabled(memory::Dialog& prompt) {
    return prompt.Find<host::DialogButton>(u"btnOk").Enabled();
  }

  String clause = u"antes";
};

}  // namespace tessaria::test
