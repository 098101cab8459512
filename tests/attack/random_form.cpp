#include "tests/attack/random_form.h"

#include <limits>

#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::attack {
namespace {

namespace type = host::type;

constexpr std::size_t kFields = 5;
constexpr std::size_t kLongestMask = 12;
constexpr std::size_t kStatementsKept = 64;

constexpr const char16_t* kMasks[] = {u"",
                                      u"dd/mm/yyyy",
                                      u"dd/mm/yy",
                                      u"mm/yyyy",
                                      u"mm/yy",
                                      u"00/00/0000",
                                      u"$$$$$.$$",
                                      u"$$$$$$$$$.$$$$",
                                      u"$$$",
                                      u"$$$.$$%",
                                      u"$$$$ kg",
                                      u"$.",
                                      u"00000",
                                      u"#####",
                                      u"000.000-00",
                                      u"(00) 0000-0",
                                      u"AAA",
                                      u"aaaa",
                                      u"CCC-0000",
                                      u"XXXX",
                                      u"XX-XX",
                                      u"N000",
                                      u"N00A",
                                      u"N-00/AAa",
                                      u"00.000.000",
                                      u"Aa0#",
                                      u"AAAAAAAAAAAAAAAAAAAA"};
constexpr StringView kMaskCharacters = u"0#dmyAaC$XN.,-/() 1x_%";

constexpr const char16_t* kTexts[] = {
    u"",        u" ",          u"0",          u"1",          u"-1",         u"12,5",
    u"12.5",    u"1.234,56",   u"abc",        u"31/12/2017", u"31022017",   u"99/99/9999",
    u"1e3",     u"&H1F",       u"9999999999", u"0,00001",    u"Verdadeiro", u"@campo0@",
    u"O'Brien", u"__/__/____", u"NaN",        u"infinity",   u"12345.67",   u"áéí çÃO"};

memory::Column Col(const char16_t* name, Long kind, Long size = 0) {
  memory::Column column;
  column.Name = name;
  column.Type = kind;
  column.DefinedSize = size;
  return column;
}

std::vector<memory::Column> Columns() {
  return {Col(u"texto", type::VarWChar, 40), Col(u"curto", type::VarWChar, 5),
          Col(u"inteiro", type::Integer),    Col(u"duplo", type::Double),
          Col(u"moeda", type::Currency),     Col(u"pequeno", type::SmallInt),
          Col(u"data", type::Date),          Col(u"logico", type::Boolean),
          Col(u"simples", type::Single),     Col(u"livre", type::VarWChar, 0)};
}

std::vector<memory::Row> StartRows() {
  const Variant null = Variant::Null();
  return {{u"Ana", u"abc", Long{7}, 12345.67, Currency{12390}, Integer{3}, Date{43000.75}, true,
           0.1F, u"x"},
          {null, null, null, null, null, null, null, null, null, null},
          {u"1234567890", u"12345", std::numeric_limits<Long>::max(), 1e300, Currency{-99999999},
           Integer{-32768}, Date{1}, false, 1e30F, u"um texto bem mais comprido que a máscara"},
          {u" ", u"0", Long{0}, 0.0, Currency{0}, Integer{0}, Date{0}, false, 0.0F, u"0"},
          {u"25122017", u"çã", Long{-1}, -0.000123456789, Currency{1}, Integer{1}, Date{-1.25},
           true, -1.5F, u"12,5"}};
}

}  // namespace

String RandomMask(Random& random) {
  if (random.Chance(75)) return random.OneOf(kMasks);
  String mask;
  for (std::size_t n = random.Below(kLongestMask); n > 0; --n)
    mask += random.OneOf(kMaskCharacters);
  return mask;
}

Variant RandomValue(Random& random) {
  switch (random.Below(12)) {
    case 0:
      return Variant::Null();
    case 1:
      return {};
    case 2:
      return static_cast<Long>(random.Below(200000)) - 100000;
    case 3:
      return static_cast<double>(static_cast<Long>(random.Below(2000000))) / 128 - 5000;
    case 4:
      return Date{static_cast<double>(random.Below(3000000)) / 8 - 50000};
    case 5:
      return Currency{static_cast<std::int64_t>(random.Below(100000000))};
    case 6:
      return random.Chance(50);
    case 7:
      return random.OneOf({1e300, -1e-300, 123456789012345678.0, 0.1});
    default:
      return random.OneOf(kTexts);
  }
}

char16_t RandomCharacter(Random& random) {
  if (random.Chance(45)) return static_cast<char16_t>(u'0' + random.Below(10));
  if (random.Chance(40)) return static_cast<char16_t>(u'a' + random.Below(26));
  if (random.Chance(60)) return random.OneOf(StringView(u",.-+/ ()$%@'\"áÃçÇéXx_#;=*\\"));
  return static_cast<char16_t>(1 + random.Below(0x2FF));
}

RandomForm::RandomForm(Random& random)
    : random_(random), form_(memory::Form::Create(u"frmAtaque")) {
  desktop_ = std::make_unique<memory::Desktop>(
      [this](const String& message) { windowFaults_.push_back(message); });
  desktop_->WillShowOthers([this](memory::Dialog& window) {
    ++windowsShown_;
    for (std::size_t n = random_.Below(4); n > 0 && window.IsShown(); --n) {
      window.Type(String(1, RandomCharacter(random_)));
    }
    if (window.IsShown())
      window.Press(random_.Chance(50) ? memory::Key::Escape : memory::Key::Enter);
    if (window.IsShown()) window.CloseWindow();
  });
  AddTables();
  form_->DbForm(connection_);
  data_ = form_->Add<memory::DataControl>(kDataControl);
  data_->Connect(connection_, u"dados");
  for (std::size_t i = 0; i < kFields; ++i) AddField(i);
  form_->Add<memory::Button>(u"btnGravar");
  form_->Add<memory::Button>(u"btnCancelar")->Cancel = true;
}

RandomForm::~RandomForm() {
  form_->Close();
  State().dbConexao = nullptr;
  State().vntValorIrmao = Variant::Null();
}

void RandomForm::AddTables() {
  table_ = connection_->AddTable(u"dados", Columns(), StartRows());
  // Lookups find one row, several, none or an error, whatever they ask for.
  connection_->OnStatement = [this](const String& statement) -> std::optional<memory::Rows> {
    if (connection_->Statements().size() > kStatementsKept) connection_->TakeStatements();
    if (InStr(LCase(statement), u"dados") != 0) return std::nullopt;
    if (random_.Chance(10)) throw HostError(errors::ProviderError, u"recusado");
    memory::Rows rows{{{u"codigo"}, {u"nome"}}, {}};
    for (std::size_t n = random_.Below(3); n > 0; --n)
      rows.Cells.push_back({kFoundKey, u"Ana Maria"});
    return rows;
  };
}

void RandomForm::AddField(std::size_t number) {
  const auto field = form_->Add<memory::TsText>(u"campo" + CStr(static_cast<Long>(number)));
  fields_.push_back(field);
  tsText& control = **field;
  control.TipoControle(static_cast<TipoControle>(random_.Chance(50) ? 0 : random_.Below(6)));
  if (random_.Chance(60)) {
    control.DataSource(kDataControl);
    control.DataField(random_.OneOf(Columns()).Name);
  }
  control.UsaChecaRelacao(random_.Chance(20));
  if (random_.Chance(40)) SetLookup(control);
  if (random_.Chance(20)) control.ObjetoCancelar(u"btnCancelar");
  Reconfigure(*field);
}

void RandomForm::SetLookup(tsText& field) {
  field.BrowseTable(u"clientes");
  field.BrwCampo(u"codigo");
  field.BrwCampoIrmao(u"nome");
  if (random_.Chance(60))
    field.TxtIrmao(u"campo" + CStr(static_cast<Long>(random_.Below(kFields))));
  if (random_.Chance(30)) field.BrwWhere(u"uf = '@campo0@'");
}

void RandomForm::Reconfigure(memory::TsText& field) {
  form_->RunEvent([&] {
    tsText& control = *field;
    control.PromptInclude(random_.Chance(40));
    control.ValorNegativo(random_.Chance(50));
    control.PodeSerBranco(random_.Chance(70));
    control.TipoDado(random_.OneOf({Long{8}, Long{8}, Long{2}, Long{4}, Long{5}, Long{7}}));
    control.TipoStrZero(static_cast<Long>(random_.Below(4)));
    control.MaxLength(random_.Chance(40) ? 0 : static_cast<Long>(random_.Below(25)));
    control.PromptChar(random_.OneOf({u"_", u"_", u" ", u"", u"0", u"#"}));
    control.PasswordChar(random_.Chance(10) ? u"*" : u"");
    control.Mascara(RandomMask(random_));
  });
}

memory::TsText* RandomForm::Focused() {
  return dynamic_cast<memory::TsText*>(form_->ActiveControl().get());
}

void RandomForm::LoadRow(Long row) {
  form_->RunEvent([&] {
    if (Rows().EditMode() != host::EditMode::None) Rows().CancelUpdate();
    Rows().AbsolutePosition(row);
  });
  for (const auto& field : fields_) form_->RunEvent([&] { (*field)->Refresh(); });
}

void RandomForm::ForgetThePast() {
  program_.TakeBoxes();
  for (const auto& field : fields_) field->ForgetEvents();
}

}  // namespace tessaria::attack
