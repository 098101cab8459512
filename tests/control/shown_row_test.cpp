// Showing a row: a value that the type cannot take is shown as a text, other errors are reported.

#include "tessaria/text.h"
#include "tests/control/raw_rows.h"
#include "tests/control/untouched_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- A field that cannot be reached --------------------------------------------------------------

class LostField : public UntouchedTest {
 protected:
  LostField() {
    AddRow(host::type::VarWChar, u"Ana");
    form->Show();
    app.TakeBoxes();
  }
  /// The two boxes of a row that could not be shown.
  void ExpectTold(const HostError& error) {
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(StopBox(Control().hWnd(), error.Description(),
                                                     u"Erro ao Atualizar o Campo 'txtCampo'"),
                                             ErrorBox(error, u"SetarVariaveis")));
  }
};

TEST_F(LostField, ARemovedDataControlIsReportedByItsOwnError) {
  Control().DataSource(u"");
  Control().DataField(u"");
  Control().Refresh();
  ExpectTold(MissingControl(u"", u"DataSource", u"txtCampo"));
  EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
  EXPECT_EQ(Box().Text(), u"Ana");
}

TEST_F(LostField, ARemovedColumnIsReportedByItsOwnError) {
  Control().DataField(u"");
  Control().Refresh();
  const auto boxes = app.TakeBoxes();
  ASSERT_THAT(boxes, SizeIs(2));
  EXPECT_EQ(boxes[1].Title, u"Erro: 3265 - Função: tsText.SetarVariaveis");
  EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
}

TEST_F(LostField, ClosedRowsKeepValueAndBindingWithoutAMessage) {
  data->RecordSet()->Close();
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
  EXPECT_EQ(Box().Text(), u"Ana");
  data->Refresh();
  EXPECT_TRUE(Control().CampoVinculado() != nullptr);
}

/// A key on one row and its description on another.
class LostDescription : public ControlTest {
 protected:
  LostDescription() {
    data = AddData({{u"codigo"}}, {{Variant::Null()}});
    connection->AddTable(u"nomes", {{u"nome"}}, {{u"Ana"}});
    names = form->Add<memory::DataControl>(u"dtcNomes");
    names->Connect(connection, u"nomes");
    key = AddField(u"txtCodigo");
    name = AddField(u"txtNome");
    Bind(key, u"codigo");
    (*name)->DataSource(u"dtcNomes");
    (*name)->DataField(u"nome");
    (*key)->TipoControle(TipoControle::Browse);
    (*key)->TxtIrmao(u"txtNome");
    (*key)->BrowseTable(u"clientes");
    (*key)->BrwCampo(u"codigo");
    (*key)->BrwCampoIrmao(u"nome");
    form->Show();
    (*name)->Refresh();
    app.TakeBoxes();
  }
  void ExpectTold(Long error) {
    (*key)->Refresh();
    const auto boxes = app.TakeBoxes();
    ASSERT_THAT(boxes, SizeIs(2));
    EXPECT_EQ(boxes[0].Title, u"Erro ao Atualizar o Campo 'txtNome'");
    EXPECT_EQ(boxes[1].Title, u"Erro ao Atualizar o Campo");
    for (const auto& box : boxes)
      EXPECT_TRUE(StartsWith(box.Text, ErrorDescription(error))) << ToUtf8(box.Text);
    EXPECT_EQ(name->txtEdit().Text(), u"Ana");
  }

  std::shared_ptr<memory::DataControl> data, names;
  FieldPtr key, name;
};

TEST_F(LostDescription, ClosedRowsAreReported) {
  names->RecordSet()->Close();
  ExpectTold(errors::ObjectClosed);
}

TEST_F(LostDescription, AColumnMissingFromTheRowsIsReported) {
  (*name)->DataField(u"sobrenome");
  ExpectTold(errors::ItemNotFound);
}

// --- A description that its type cannot take -----------------------------------------------------

struct Unreadable {
  Long TipoDado;
  const char16_t* Text;
  const char16_t* Mask;
};

class UnreadableDescription : public ControlTest, public testing::WithParamInterface<Unreadable> {
 protected:
  UnreadableDescription() {
    connection->OnStatement = [](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"taxas") == 0) return std::nullopt;
      return memory::Rows{{{u"taxa"}}, {{GetParam().Text}}};
    };
    AddData({{u"codigo"}}, {{u"15"}});
    key = AddField(u"txtCodigo");
    Bind(key, u"codigo");
    (*key)->TipoControle(TipoControle::Browse);
    (*key)->TxtIrmao(u"txtTaxa");
    (*key)->BrowseTable(u"taxas");
    (*key)->BrwCampo(u"codigo");
    (*key)->BrwCampoIrmao(u"taxa");
    rate = AddField(u"txtTaxa");
    (*rate)->UsaChecaRelacao(false);
    (*rate)->TipoDado(GetParam().TipoDado);
    (*rate)->Mascara(GetParam().Mask);
  }
  FieldPtr key, rate;
};

INSTANTIATE_TEST_SUITE_P(Values, UnreadableDescription,
                         testing::Values(Unreadable{5, u"infinity", u""},
                                         Unreadable{5, u"NaN", u"$$$$.$$"},
                                         Unreadable{2, u"123456789012345678901234567890,5", u""},
                                         Unreadable{7, u"infinity", u"dd/mm/yyyy"},
                                         Unreadable{7, u"25/12/12017", u""}));

TEST_P(UnreadableDescription, IsShownUnchangedInAnUnboundField) {
  const String text = GetParam().Text;
  form->Show();
  for (int row = 0; row < 2; ++row) {
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    EXPECT_EQ(rate->txtEdit().Text(), text);
    EXPECT_THAT((*rate)->Value(), IsValue(text));
    form->Focus(u"txtTaxa");
    EXPECT_EQ((*rate)->UserControl_ExitFocus(), ExitVerdict::Left);
    EXPECT_EQ(rate->txtEdit().Text(), text);
    EXPECT_THAT((*rate)->Value(), IsValue(text));
    (*key)->Refresh();
  }
}

TEST_P(UnreadableDescription, IsStillRefusedWhenAProgramAssignsIt) {
  form->Show();
  app.TakeBoxes();
  (*rate)->Value(GetParam().Text);
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT((*rate)->Value(), IsEmptyVariant());
}

}  // namespace
}  // namespace tessaria::test
