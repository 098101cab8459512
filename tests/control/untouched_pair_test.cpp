// A key and its description on one row, shown and left untouched: the row does not change.

#include "tessaria/text.h"
#include "tests/control/control_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// The row holds code 7 with its own name; the database finds "Ana" for every code and "9" for
/// every name.
class UntouchedPairTest : public ControlTest {
 protected:
  UntouchedPairTest() {
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    connection->OnStatement = [](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"clientes") == 0) return std::nullopt;
      if (StartsWith(statement, u"Select Top 1 nome")) return memory::Rows{{{u"nome"}}, {{u"Ana"}}};
      return memory::Rows{{{u"codigo"}}, {{u"9"}}};
    };
    data = AddData({{u"codigo", host::type::VarWChar}, {u"nome", host::type::VarWChar}},
                   {{u"7", u"Velho"}, {Variant::Null(), u"Sem código"}});
    key = AddPartner(u"txtCodigo", u"codigo", u"txtNome", u"nome");
    description = AddPartner(u"txtNome", u"nome", u"txtCodigo", u"codigo");
    (*key)->TipoControle(TipoControle::Browse);
    (*description)->TipoControle(TipoControle::Descricao);
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
    form->Show();
    // Each shows what the row itself holds.
    (*key)->ShowValue(Stored(u"codigo"));
    (*description)->ShowValue(Stored(u"nome"));
    connection->TakeStatements();
  }
  FieldPtr AddPartner(const String& name, const String& column, const String& sibling,
                      const String& siblingColumn) {
    const auto field = AddField(name);
    Bind(field, column);
    (*field)->UsaChecaRelacao(false);
    (*field)->TxtIrmao(sibling);
    const auto definition = (*field)->Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(column);
    definition->BrwCampoIrmao(siblingColumn);
    return field;
  }
  Variant Stored(const String& column) { return Rows().Fields().Item(column)->Value(); }
  host::Recordset& Rows() { return *data->RecordSet(); }
  bool IsEdited() { return Rows().EditMode() != host::EditMode::None; }
  void GoToRow(Long row) { Rows().AbsolutePosition(row); }
  /// A key-up of the box that changes nothing in it.
  static void KeyUp(const FieldPtr& field) {
    Integer code = 16, shift = 0;  // Shift
    field->txtEdit().OnKeyUp(code, shift);
  }

  std::shared_ptr<memory::DataControl> data;
  FieldPtr key, description;
};

// --- A row is shown -----------------------------------------------------------------------------

TEST_F(UntouchedPairTest, TheRowOfAKeyFillsItsDescription) {
  (*key)->Refresh();
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_EQ(description->txtEdit().Text(), u"Ana");
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Velho"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedPairTest, TheRowOfADescriptionFillsItsKey) {
  key->ForgetEvents();
  (*description)->Refresh();
  EXPECT_THAT((*key)->Value(), IsValue(u"9"));
  EXPECT_EQ(key->txtEdit().Text(), u"9");
  EXPECT_THAT((*description)->Value(), IsValue(u"Velho"));
  EXPECT_THAT(key->Events(Kind::BrowseReturn), SizeIs(1));
  EXPECT_THAT(Stored(u"codigo"), IsValue(u"7"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedPairTest, ARowWithoutAKeyEmptiesTheDescriptionAndTheReturnFields) {
  (*key)->Browse()->Outros().Add(u"cidade");
  const auto city = (*key)->Browse()->Outros().Item(1);
  city->Valor(u"Campinas");
  GoToRow(2);
  (*key)->Refresh();
  EXPECT_THAT((*key)->Value(), IsNullVariant());
  EXPECT_THAT((*description)->Value(), IsNullVariant());
  EXPECT_EQ(description->txtEdit().Text(), u"");
  EXPECT_THAT(city->Valor(), IsEmptyVariant());
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Sem código"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedPairTest, ARowWhoseLookupFailsKeepsTheDescriptionAndTheReturnFields) {
  (*key)->Browse()->Outros().Add(u"cidade");
  const auto city = (*key)->Browse()->Outros().Item(1);
  const auto stays = [&] {
    city->Valor(u"Campinas");
    (*key)->Refresh();
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    EXPECT_THAT((*key)->Value(), IsValue(u"7"));
    EXPECT_EQ(key->txtEdit().Text(), u"7");
    EXPECT_THAT((*description)->Value(), IsValue(u"Velho"));
    EXPECT_EQ(description->txtEdit().Text(), u"Velho");
    EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
    EXPECT_FALSE(IsEdited());
  };
  connection->OnStatement = [](const String&) -> memory::Rows {
    throw HostError(errors::ProviderError, u"recusada");
  };
  stays();
  connection->OnStatement = nullptr;
  connection->ConnectionString(u"");
  stays();
}

TEST_F(UntouchedPairTest, AKeyWithoutAColumnThatIsRefreshedWhileItIsTypedEmptiesTheDescription) {
  const auto loose = AddPartner(u"txtSolto", u"codigo", u"txtNome", u"nome");
  (*loose)->DataField(u"");
  (*loose)->Refresh();
  KeyUp(loose);
  (*loose)->Refresh();
  EXPECT_THAT((*description)->Value(), IsNullVariant());
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Velho"));
  EXPECT_FALSE(IsEdited());
}

// The key's rows are at their end; the description is bound to other rows.
TEST_F(UntouchedPairTest, TheEndOfTheKeysRowsEmptiesTheDescriptionAndDoesNotChangeItsRow) {
  connection->AddTable(u"vazia", {{u"codigo", host::type::VarWChar}}, {});
  const auto empty = form->Add<memory::DataControl>(u"dtcVazio");
  empty->Connect(connection, u"vazia");
  empty->Refresh();
  KeyUp(key);
  (*key)->DataSource(u"dtcVazio");
  (*key)->Refresh();
  EXPECT_THAT((*key)->Value(), IsNullVariant());
  EXPECT_THAT((*description)->Value(), IsNullVariant());
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Velho"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedPairTest, ARowThatCannotBeReadDoesNotMakeTheNextAssignmentALoad) {
  const auto rows = std::make_shared<RawRows>();
  const auto raw = form->Add<memory::DataControl>(u"dtcCru");
  raw->ConnectionString(u"DSN=teste");
  raw->RecordSource(u"crua");
  raw->RecordSet(rows);
  (*key)->DataSource(u"dtcCru");
  (*key)->DataField(u"campo");
  rows->Field.ReadFault = HostError(errors::ProviderError, u"sem servidor");
  (*key)->Refresh();
  rows->Field.ReadFault.reset();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  (*key)->Value(u"8");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// --- A field is left ----------------------------------------------------------------------------

TEST_F(UntouchedPairTest, AKeyThatChangesNothingFillsTheDescriptionAndDoesNotChangeItsRow) {
  for (const auto stroke : {memory::Key::Left, memory::Key::Shift, memory::Key::Home}) {
    (*description)->ShowValue(u"Velho");
    form->Focus(u"txtCodigo");
    form->Press(stroke);
    form->Focus(u"chkAtivo");
    EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
    EXPECT_EQ(description->txtEdit().Text(), u"Ana");
    EXPECT_THAT(Stored(u"nome"), IsValue(u"Velho"));
    EXPECT_FALSE(IsEdited());
  }
}

TEST_F(UntouchedPairTest, AKeyThatChangesNothingInADescriptionDoesNotChangeTheKeysRow) {
  form->Focus(u"txtNome");
  form->Press(memory::Key::Home);  // starts no search
  form->Focus(u"chkAtivo");
  EXPECT_THAT((*key)->Value(), IsValue(u"9"));
  EXPECT_THAT(Stored(u"codigo"), IsValue(u"7"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Velho"));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedPairTest, ATypedKeyWritesTheDescription) {
  form->Focus(u"txtCodigo");
  key->txtEdit().SelLength(1);
  form->Type(u"8");
  form->Focus(u"chkAtivo");
  EXPECT_THAT(Stored(u"codigo"), IsValue(u"8"));
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Ana"));
}

TEST_F(UntouchedPairTest, AKeyIsSettledEvenIfItsDescriptionCannotBeLookedUp) {
  (*key)->Browse()->BrwWhere(u"uf = @txtNada@");
  form->Focus(u"txtCodigo");
  key->txtEdit().SelLength(1);
  form->Type(u"8");
  const auto told = key->ChangedProperties().size();
  form->Focus(u"chkAtivo");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Stored(u"codigo"), IsValue(u"8"));
  for (std::size_t i = told; i < key->ChangedProperties().size(); ++i)
    EXPECT_NE(key->ChangedProperties()[i], u"Value");
  Rows().Update();
  form->Focus(u"txtCodigo");
  form->Focus(u"chkAtivo");
  EXPECT_FALSE(IsEdited());
}

// --- A description completes --------------------------------------------------------------------

/// The database refuses the key that the completion finds.
class RefusedCompletionTest : public UntouchedPairTest {
 protected:
  RefusedCompletionTest() {
    connection->OnStatement = [](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"clientes") == 0) return std::nullopt;
      return memory::Rows{{{u"nome"}, {u"codigo"}}, {{u"Ana Maria", u"9"}}};
    };
    const auto rows = std::make_shared<RawRows>();
    rows->Field.Refusal = HostError(errors::ProviderError, u"linha alterada");
    const auto raw = form->Add<memory::DataControl>(u"dtcCru");
    raw->ConnectionString(u"DSN=teste");
    raw->RecordSource(u"crua");
    raw->RecordSet(rows);
    (*key)->DataSource(u"dtcCru");
    (*key)->DataField(u"campo");
    (*key)->Refresh();
    (*description)->ShowValue(u"An");
    app.TakeBoxes();
    form->Focus(u"txtNome");
  }
  memory::TextBox& Box() { return description->txtEdit(); }
};

TEST_F(RefusedCompletionTest, RestoresTheTypedText) {
  key->ForgetEvents();
  Box().SelStart(2);
  form->Type(u"a");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_EQ(Box().Text(), u"Ana");
  EXPECT_EQ(Box().SelStart(), 3);
  EXPECT_EQ(Box().SelLength(), 0);
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
  form->Focus(u"chkAtivo");
  app.TakeBoxes();
  EXPECT_THAT(Stored(u"nome"), IsValue(u"Ana"));
}

TEST_F(RefusedCompletionTest, DoesNotTouchTheFieldIfNothingWasTyped) {
  form->Press(memory::Key::Left);
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_EQ(Box().Text(), u"An");
  form->Focus(u"chkAtivo");
  app.TakeBoxes();
  EXPECT_FALSE(IsEdited());
}

}  // namespace
}  // namespace tessaria::test
