// Each mistake that a form file can have by itself: planted alone, found alone, at its line.
#include <gtest/gtest.h>

#include <ostream>

#include "tests/check/planted_form.h"

namespace tessaria::formcheck::test {
namespace {

struct Mistake {
  const char* name;
  const char* text;         ///< of the clean form
  const char* replacement;  ///< with the mistake
  const char* at;           ///< where the finding is
  const char* finding;      ///< without file and line
};

void PrintTo(const Mistake& mistake, std::ostream* out) { *out << mistake.name; }

// A line of the settings with a neighbour, which the planted line is put beside.
#define BESIDE_MAX_LENGTH(line) \
  "<string>MaxLength=Integer:40</string>", "<string>MaxLength=Integer:40</string>\n" line

const Mistake kSettingMistakes[] = {
    {"UnknownSetting", "PodeSerBranco=", "PodeSerBrnaco=", "PodeSerBrnaco",
     "codigo: there is no setting 'PodeSerBrnaco' (did you mean 'PodeSerBranco'?)"},
    {"UnknownSettingFarFromAll", BESIDE_MAX_LENGTH("<string>Xyz=Long:1</string>"),
     "Xyz=", "cidade: there is no setting 'Xyz'"},
    {"SettingThatIsNotStored", BESIDE_MAX_LENGTH("<string>Nome=String:a</string>"), "Nome=String:a",
     "cidade: there is no setting 'Nome'"},
    {"UnknownSettingOfDefinition", "Browse.BrwTitulo", "Browse.BrwTitlo", "Browse.BrwTitlo",
     "codigo: there is no setting 'Browse.BrwTitlo' (did you mean 'BrwTitulo'?); entries are "
     "numbered from 1 without a gap"},
    {"GapInEntries", "Browse.Coluna2Campo", "Browse.Coluna3Campo", "Browse.Coluna3Campo",
     "codigo: there is no setting 'Browse.Coluna3Campo' (did you mean 'Coluna2Campo'?); entries "
     "are numbered from 1 without a gap"},
    {"ValueOfWrongKind", "PodeSerBranco=Boolean:False", "PodeSerBranco=String:talvez",
     "PodeSerBranco", "codigo: PodeSerBranco takes Boolean:True or Boolean:False"},
    {"ValueThatIsNone", "MaxLength=Integer:40", "MaxLength=Integer:muitos", "Integer:muitos",
     "cidade: 'Integer:muitos' is no stored value"},
    {"FontOfWrongKind", "Font=Font:9 bold name=Arial", "Font=String:Arial", "Font=String",
     "nascimento: Font takes a font"},
    {"ValueOfDefinition", "Browse.Coluna1Width=Single:900", "Browse.Coluna1Width=String:larga",
     "Coluna1Width", "codigo: Browse.Coluna1Width has a value of a wrong kind"},
    {"ObjectOfOtherClass", "Pesquisa=Object:Pesquisa", "Pesquisa=Object:Pesquisas",
     "Object:Pesquisas", "codigo: 'Pesquisa' takes 'Object:Pesquisa', not 'Object:Pesquisas'"},
    {"CodeOutOfRange", "TipoControle=Long:2", "TipoControle=Long:9", "Long:9",
     "nascimento: TipoControle is one of 0 to 5, not 9"},
    {"NegativeLength", "MaxLength=Integer:40", "MaxLength=Integer:-1", "Integer:-1",
     "cidade: MaxLength is at least 0, not -1"},
    {"LineWithoutSign", "MaxLength=Integer:40", "MaxLength Integer 40", "MaxLength Integer 40",
     "cidade: 'MaxLength Integer 40' has no '='"},
    {"SameSettingTwice", BESIDE_MAX_LENGTH("<string>maxlength=Integer:5</string>"), "maxlength",
     "cidade: 'maxlength' is there twice"},
    {"EntryBeforeItsObject", BESIDE_MAX_LENGTH("<string>Browse.BrwCampo=String:a</string>"),
     "Browse.BrwCampo=String:a", "cidade: 'Browse.BrwCampo' stands before 'Browse=Object:Browse'"},
    {"SettingsAsOneText",
     "<stringlist notr=\"true\">\n       <string>tessaria 1</string>\n       "
     "<string>TipoDado=Long:8</string>\n       <string>MaxLength=Integer:40</string>\n      "
     "</stringlist>",
     "<string>tessaria 1</string>",
     "<string>tessaria 1</string>\n     </property>"
     "\n    </widget>\n   </item>\n   <item>\n    <widget class=\"QTab",
     "cidade: the settings must be a <stringlist>"},
    {"FirstLineMissing", "<string>tessaria 1</string>\n       <string>TipoDado=Long:8</string>",
     "<string>TipoDado=Long:8</string>", "TipoDado=Long:8",
     "cidade: the first line of the settings must be 'tessaria 1'"},
    {"OtherVersion", "<string>tessaria 1</string>\n       <string>TipoDado=Long:8</string>",
     "<string>tessaria 2</string>\n       <string>TipoDado=Long:8</string>", "tessaria 2",
     "cidade: the version 'tessaria 2' is not known; this is 'tessaria 1'"},
};

const Mistake kMaskMistakes[] = {
    {"MaskWithoutItems", "<string>ItensMascara=String:_/</string>", "",
     "Mascara=String:dd/mm/yyyy</string>\n           ",
     "nascimento: Mascara without ItensMascara takes no literal out of the text; add "
     "'ItensMascara=String:_/'"},
    {"ItemsOfAnotherMask", "ItensMascara=String:_/", "ItensMascara=String:_-", "String:_-",
     "nascimento: ItensMascara does not belong to the mask 'dd/mm/yyyy'; it is "
     "'ItensMascara=String:_/'"},
    {"SlotInOtherCase", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:Dd</string><string>ItensMascara=String:_D</string>", "String:Dd",
     "cidade: mask 'Dd': 'D' is no slot but a literal; the slot is 'd'"},
    {"NineIsNoSlot", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:9#</string><string>ItensMascara=String:_9</string>", "String:9#",
     "cidade: mask '9#': '9' is no slot but a literal; a digit is '#' or '0'"},
    {"DigitAsLiteral", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:+5 ##</string><string>ItensMascara=String:_+5 </string>", "String:+5",
     "cidade: warning: mask '+5 ##': the literal '5' is removed from what is typed, wherever it "
     "occurs"},
    {"NoSlot", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:--</string><string>ItensMascara=String:_-</string>", "String:--",
     "cidade: mask '--': it has no slot"},
    {"NumberSlotInside", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:#$</string><string>ItensMascara=String:_</string>", "String:#$",
     "cidade: mask '#$': '$' makes a number only as the first character"},
    {"UnbalancedMask", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:(##</string><string>ItensMascara=String:_(</string>", "String:(##",
     "cidade: warning: mask '(##': '()' are not balanced"},
    {"DateOfZeros", "<string>MaxLength=Integer:40</string>",
     "<string>Mascara=String:00/00/0000</string><string>ItensMascara=String:_/</string>",
     "String:00/00",
     "cidade: mask '00/00/0000': only an empty field passes its date check; a date is "
     "'dd/mm/yyyy'"},
    {"CommaInNumber",
     "Mascara=String:$$$$$.$$%</string>\n           <string>ItensMascara=String:_.%",
     "Mascara=String:$,$$.$$%</string>\n           <string>ItensMascara=String:_,.%", "$,$$",
     "valor: mask '$,$$.$$%': a numeric mask must not have a ','; the '.' marks the decimals"},
    {"TwoPointsInNumber", "Mascara=String:$$$$$.$$%", "Mascara=String:$$.$$.$$%", "$$.$$.",
     "valor: mask '$$.$$.$$%': a numeric mask has one '.', before its decimals"},
    {"OtherSlotInNumber", "Mascara=String:$$$$$.$$%", "Mascara=String:$$$0$.$$%", "$$$0$",
     "valor: mask '$$$0$.$$%': a numeric mask has no slots but '$'"},
    {"TextInsideNumber", "Mascara=String:$$$$$.$$%", "Mascara=String:$$%$$.$$%", "$$%$$",
     "valor: mask '$$%$$.$$%': a numeric mask has no text before its last '$'"},
    {"LongSuffix", "Mascara=String:$$$$$.$$%", "Mascara=String:$$$$$.$$%%", "$.$$%%",
     "valor: warning: mask '$$$$$.$$%%': the text after a number must be one character; more is "
     "shown repeatedly"},
    {"NumberWithoutLength", "<string>MaxLength=Integer:12</string>", "", "Mascara=String:$$$$$.$$%",
     "valor: warning: a numeric mask needs MaxLength, the length of the formatted number; without "
     "it neither '-' nor the removal of the comma is accepted"},
    {"DateWithoutItsLiterals", "<string>PromptInclude=Boolean:True</string>", "",
     "Mascara=String:dd/mm/yyyy</string>\n           ",
     "nascimento: warning: a date mask needs PromptInclude=Boolean:True, or the value is digits "
     "alone"},
    {"SignWithoutNumber",
     BESIDE_MAX_LENGTH("<string>ValorNegativo=Boolean:True</string><string>"
                       "Mascara=String:##</string><string>ItensMascara=String:_</string>"),
     "ValorNegativo", "cidade: warning: ValorNegativo has no effect: the mask '##' is not numeric"},
    {"LongPromptChar", BESIDE_MAX_LENGTH("<string>PromptChar=String:__</string>"), "String:__",
     "cidade: PromptChar is one character, not '__'"},
    {"DigitAsPromptChar", BESIDE_MAX_LENGTH("<string>PromptChar=String:0</string>"), "PromptChar",
     "cidade: PromptChar '0' is removed from what is typed"},
    {"ItemsWithoutMask", BESIDE_MAX_LENGTH("<string>ItensMascara=String:_</string>"),
     "ItensMascara=String:_</string>\n      </stringlist>",
     "cidade: warning: ItensMascara without Mascara has no effect"},
    {"SearchMask", "Pesquisa.Pesquisa1Like=Long:3",
     "Pesquisa.Pesquisa1Like=Long:3</string><string>Pesquisa.Pesquisa1Mascara=String:x#",
     "Pesquisa1Mascara", "codigo: mask 'x#': 'x' is no slot but a literal; the slot is 'X'"},
    {"DateSearchWithoutMask", "<string>Pesquisa.Pesquisa2Mascara=String:dd/mm/yyyy</string>", "",
     "Pesquisa2Tipo", "codigo: search 2 for a date needs the mask 'dd/mm/yyyy' and PromptInclude"},
};

const Mistake kNameMistakes[] = {
    {"Label", "LabelAssociado=String:lblCodigo", "LabelAssociado=String:lblCodgo", "lblCodgo",
     "codigo: LabelAssociado 'lblCodgo' is not on this form (did you mean 'lblCodigo'?)"},
    {"LabelThatIsNone", "LabelAssociado=String:lblCodigo", "LabelAssociado=String:livre",
     "String:livre", "codigo: LabelAssociado 'livre' is a QLineEdit, no QLabel"},
    {"Sibling", BESIDE_MAX_LENGTH("<string>TxtIrmao=String:ninguem</string>"), "ninguem",
     "cidade: TxtIrmao 'ninguem' is not on this form"},
    {"SiblingThatIsNoField", BESIDE_MAX_LENGTH("<string>TxtIrmao=String:livre</string>"),
     "TxtIrmao=String:livre", "cidade: TxtIrmao 'livre' is a QLineEdit, no tessaria::qt::TsText"},
    {"SiblingOfItself", BESIDE_MAX_LENGTH("<string>TxtIrmao=String:CIDADE</string>"), "CIDADE",
     "cidade: TxtIrmao 'CIDADE' is the field itself"},
    {"DataControl", "DataSource=String:dados", "DataSource=String:dado", "String:dado<",
     "codigo: DataSource 'dado' is not on this form (did you mean 'dados'?)"},
    {"DataControlThatIsNone", "DataSource=String:dados", "DataSource=String:livre", "String:livre",
     "codigo: DataSource 'livre' is a QLineEdit, no tessaria::qt::Adodc"},
    {"CancelButton", "ObjetoCancelar=String:btnCancelar", "ObjetoCancelar=String:btnVoltar",
     "btnVoltar", "codigo: ObjetoCancelar 'btnVoltar' is not on this form"},
    {"ColumnWithoutDataControl", BESIDE_MAX_LENGTH("<string>DataField=String:cidade</string>"),
     "DataField=String:cidade",
     "cidade: warning: DataField without DataSource: the field is not bound"},
    {"TabThatIsNoNumber", "NumeroTab=String:1", "NumeroTab=String:um", "String:um",
     "nascimento: NumeroTab 'um' is no number"},
    {"TabThatIsNotThere", "NumeroTab=String:1", "NumeroTab=String:2", "NumeroTab=String:2",
     "nascimento: NumeroTab '2': 'abas' has the tabs 0 to 1"},
    {"OtherTab", "NumeroTab=String:1", "NumeroTab=String:0",
     "NumeroTab=String:0</string>\n           <string>Mascara=String:dd",
     "nascimento: NumeroTab '0': the field is on tab 1 of 'abas'"},
    {"TabWithoutTabs", BESIDE_MAX_LENGTH("<string>NumeroTab=String:3</string>"),
     "NumeroTab=String:3",
     "cidade: warning: NumeroTab '3' has no effect: the field is on no QTabWidget"},
};

const Mistake kLookupMistakes[] = {
    {"FlatTextOnly", BESIDE_MAX_LENGTH("<string>BrowseTable=String:cidades</string>"),
     "BrowseTable=String:cidades",
     "cidade: BrowseTable is given in the flat text only, and the lookup reads its definition; add "
     "'Browse.BrowseTable=String:cidades'"},
    {"FlatTextThatDiffers",
     "<string>Browse=Object:Browse</string>\n       <string>Browse.BrwTitulo",
     "<string>Browse=Object:Browse</string><string>BrwTitulo=String:Outros</string>\n       "
     "<string>Browse.BrwTitulo",
     "BrwTitulo=String:Outros", "codigo: BrwTitulo differs from Browse.BrwTitulo 'Clientes'"},
    {"SearchInFlatTexts", BESIDE_MAX_LENGTH("<string>PesqCaption=String:Nome</string>"),
     "PesqCaption",
     "cidade: warning: PesqCaption is the older form of a search; use 'Pesquisa=Object:Pesquisa' "
     "and its entries"},
    {"NoTable", "<string>TipoDado=Long:8</string>",
     "<string>TipoControle=Long:1</string><string>Browse=Object:Browse</string><string>"
     "Browse.BrwCampo=String:a</string><string>Browse.BrwCampoIrmao=String:b</string>",
     "Browse.BrwCampo=String:a", "cidade: the lookup has no BrowseTable"},
    {"NoDescription", "<string>TipoDado=Long:8</string>",
     "<string>TipoControle=Long:1</string><string>Browse=Object:Browse</string><string>"
     "Browse.BrwCampo=String:a</string><string>Browse.BrowseTable=String:b</string>",
     "Browse.BrwCampo=String:a",
     "cidade: the lookup has no BrwCampoIrmao and no BrwCampoOutros, so that it never finds a "
     "description"},
    {"ReturnFieldThatIsNotSelected", "Outros1Nome=String:nascimento", "Outros1Nome=String:telefone",
     "Outros1Nome",
     "codigo: return field 'telefone' is neither in BrwCampoIrmao nor in BrwCampoOutros: it stays "
     "empty"},
    {"KindOfSearch", "Pesquisa.Pesquisa1Tipo=Long:8", "Pesquisa.Pesquisa1Tipo=Long:3",
     "Pesquisa1Tipo",
     "codigo: Pesquisa.Pesquisa1Tipo is 2 (a number), 7 (a date) or 8 (a text), not 3"},
    {"ComparisonOfSearch", "Pesquisa.Pesquisa1Like=Long:3", "Pesquisa.Pesquisa1Like=Long:8",
     "Pesquisa1Like", "codigo: Pesquisa.Pesquisa1Like is one of 0 to 7, not 8"},
    {"SearchWithoutColumn", "Pesquisa.Pesquisa1Campo=String:nome",
     "Pesquisa.Pesquisa1Campo=String:", "Pesquisa1Campo", "codigo: search 1 has no column"},
    {"GapInSearches", "Pesquisa.Pesquisa2Indice=Long:2", "Pesquisa.Pesquisa2Indice=Long:3",
     "Pesquisa1Indice", "codigo: no search has the number 2"},
    {"ColumnsNotSwapped",
     "<string>Browse.BrwCampo=String:nome</string>\n       "
     "<string>Browse.BrwCampoIrmao=String:codigo",
     "<string>Browse.BrwCampo=String:codigo</string>\n       "
     "<string>Browse.BrwCampoIrmao=String:nome",
     "Browse.BrwCampo=",
     "codigo: the columns of the pair are not swapped: 'codigo', 'nome' here and 'codigo', 'nome' "
     "in 'nome'"},
    {"TwoTables",
     "<string>Browse.BrowseTable=String:clientes</string>\n       "
     "<string>Browse.BrwCampo=String:nome",
     "<string>Browse.BrowseTable=String:fornecedores</string>\n       "
     "<string>Browse.BrwCampo=String:nome",
     "Browse.BrowseTable=",
     "codigo: the pair looks at two tables: 'clientes' here and 'fornecedores' in 'nome'"},
    {"SiblingThatDoesNotPointBack", "<string>TxtIrmao=String:codigo</string>", "",
     "TxtIrmao=String:nome", "codigo: the sibling 'nome' does not point back"},
    {"PlainSiblingThatDoesNotPointBack",
     BESIDE_MAX_LENGTH("<string>TxtIrmao=String:valor</string>"), "TxtIrmao=String:valor",
     "cidade: warning: the sibling 'valor' does not point back"},
};

#define CONDITION "(cidade = '@cidade@' or limite &gt;= @valor@)"
const Mistake kParameterMistakes[] = {
    {"ParameterWithoutControl", CONDITION, "cidade = '@cidad@'", "BrwWhere",
     "codigo: the parameter '@cidad@' has no control on this form (did you mean 'cidade'?)"},
    {"ParameterWithoutQuotes", CONDITION, "cidade = @cidade@", "BrwWhere",
     "codigo: the parameter '@cidade@' can be a text: write it between apostrophes"},
    {"DateWithoutQuotes", CONDITION, "nascimento = @nascimento@", "BrwWhere",
     "codigo: the parameter '@nascimento@' can be a text: write it between apostrophes"},
    {"ParameterWithoutEnd", CONDITION, "limite = @valor", "BrwWhere",
     "codigo: the parameter '@valor' has no second '@'"},
    {"ParameterInComment", CONDITION, "limite = 0 /* @valor@ */", "BrwWhere",
     "codigo: the parameter '@valor@' stands where none is accepted"},
    {"ParameterWithoutValue", CONDITION, "cidade = '@livre@'", "BrwWhere",
     "codigo: the parameter '@livre@' is a QLineEdit, which has no Value"},
    {"WordWhere", CONDITION, "Where limite = 0", "BrwWhere",
     "codigo: BrwWhere is the condition without the word Where"},
    {"OpenQuotation", CONDITION, "cidade = 'a", "BrwWhere",
     "codigo: a quotation or comment in BrwWhere is not closed"},
    {"OpenParenthesis", CONDITION, "(limite = 0", "BrwWhere",
     "codigo: the parentheses in BrwWhere are not balanced"},
};

const Mistake kClassMistakes[] = {
    {"NotPromoted", "<class>tessaria::qt::TsText</class>", "<class>outra::Classe</class>",
     "name=\"codigo\"",
     "codigo: warning: 'tessaria::qt::TsText' is not among the <customwidgets>: compiled code "
     "lacks 'tessaria/qt/tstext.h'"},
    {"PromotedWithoutHeader", "<header>tessaria/qt/tstext.h</header>", "", "<customwidget>",
     "'tessaria::qt::TsText' has the header '' instead of 'tessaria/qt/tstext.h'"},
    {"PromotedWithOtherHeader", "<header>tessaria/qt/adodc.h</header>", "<header>adodc.h</header>",
     "<customwidget>\n   <class>tessaria::qt::Adodc",
     "'tessaria::qt::Adodc' has the header 'adodc.h' instead of 'tessaria/qt/adodc.h'"},
    {"ClassWithoutNamespace", "class=\"QLineEdit\"", "class=\"TsText\"", "name=\"livre\"",
     "livre: the class is called 'tessaria::qt::TsText', not 'TsText'"},
    {"SettingAsProperty", "name=\"codigo\">",
     "name=\"codigo\"><property name=\"Mascara\"><string>000</string></property>",
     "name=\"Mascara\"",
     "codigo: warning: the property 'Mascara' is set with its side effects and not checked; give "
     "it "
     "among the 'settings'"},
    {"SettingsOfOtherClass", "<widget class=\"QLineEdit\" name=\"livre\"/>",
     "<widget class=\"QLineEdit\" name=\"livre\"><property name=\"settings\"><stringlist>"
     "</stringlist></property></widget>",
     "name=\"livre\"", "livre: a QLineEdit has no settings: only 'tessaria::qt::TsText' has"},
};

/// As the command writes it: the severity stands before the field.
std::string Told(const Mistake& mistake) {
  const std::string warning = "warning: ";
  std::string finding = mistake.finding;
  const std::size_t at = finding.find(warning);
  if (at == std::string::npos) return "error: " + finding;
  return warning + finding.erase(at, warning.size());
}

/// The only line without its end, " [kind]"; whole when there is another one.
std::string WithoutKind(const std::string& out) {
  const bool isOne = out.find('\n') + 1 == out.size() && out.ends_with("]\n");
  return isOne ? out.substr(0, out.rfind(" [")) : out;
}

class MistakeTest : public ::testing::TestWithParam<Mistake> {};

TEST_P(MistakeTest, IsFoundAlone) {
  const Mistake& mistake = GetParam();
  const PlantedForm form(mistake.text, mistake.replacement);
  const Report report = Check(form);
  const std::string line = std::to_string(form.LineOf(mistake.at));
  EXPECT_EQ(WithoutKind(report.out), form.Path() + ":" + line + ": " + Told(mistake));
  EXPECT_EQ(report.error, "");
  EXPECT_EQ(report.code, 1);
}

std::string NameOf(const ::testing::TestParamInfo<Mistake>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Settings, MistakeTest, ::testing::ValuesIn(kSettingMistakes), NameOf);
INSTANTIATE_TEST_SUITE_P(Masks, MistakeTest, ::testing::ValuesIn(kMaskMistakes), NameOf);
INSTANTIATE_TEST_SUITE_P(Names, MistakeTest, ::testing::ValuesIn(kNameMistakes), NameOf);
INSTANTIATE_TEST_SUITE_P(Lookups, MistakeTest, ::testing::ValuesIn(kLookupMistakes), NameOf);
INSTANTIATE_TEST_SUITE_P(Parameters, MistakeTest, ::testing::ValuesIn(kParameterMistakes), NameOf);
INSTANTIATE_TEST_SUITE_P(Classes, MistakeTest, ::testing::ValuesIn(kClassMistakes), NameOf);

}  // namespace
}  // namespace tessaria::formcheck::test
