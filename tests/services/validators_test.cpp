// CPF and CNPJ, with and without letters.
#include "tessaria/validators.h"

#include <gtest/gtest.h>

#include "tessaria/utf8.h"

namespace tessaria::test {
namespace {

struct Document {
  const char16_t* text;
  bool isRight;
};

TEST(Validators, ACpfHasElevenDigitsOfWhichTwoCheckTheOthers) {
  for (const Document& cpf : {Document{u"52998224725", true}, Document{u"11144477735", true},
                              Document{u"529.982.247-25", true}, Document{u"52998224724", false},
                              Document{u"52998224715", false}, Document{u"5299822472", false},
                              Document{u"529982247255", false}, Document{u"11111111111", false},
                              Document{u"5299822472A", false}, Document{u"", false}})
    EXPECT_EQ(IsCpf(cpf.text), cpf.isRight) << ToUtf8(cpf.text);
}

TEST(Validators, ACnpjHasFourteenCharactersOfWhichTwoDigitsCheckTheOthers) {
  for (const Document& cnpj :
       {Document{u"11222333000181", true}, Document{u"11.222.333/0001-81", true},
        Document{u"12ABC34501DE35", true}, Document{u"12.ABC.345/01DE-35", true},
        Document{u"12.abc.345/01de-35", true}, Document{u"12ABC34501DE36", false},
        Document{u"12ABC34501DEA5", false}, Document{u"12ÁBC34501DE35", false},
        Document{u"11222333000182", false}, Document{u"52998224725", false},
        Document{u"00000000000000", false}, Document{u"AAAAAAAAAAAAAA", false},
        Document{u"", false}})
    EXPECT_EQ(IsCnpj(cnpj.text), cnpj.isRight) << ToUtf8(cnpj.text);
}

TEST(Validators, SayWhyATextIsRefused) {
  const String refusal = u"não confere, Verifique Por Favor";
  EXPECT_EQ(CpfValidator()(u"52998224725"), u"");
  EXPECT_EQ(CpfValidator()(u"11222333000181"), refusal);
  EXPECT_EQ(CnpjValidator()(u"12ABC34501DE35"), u"");
  EXPECT_EQ(CnpjValidator()(u"52998224725"), refusal);
  EXPECT_EQ(CpfOrCnpjValidator()(u"52998224725"), u"");
  EXPECT_EQ(CpfOrCnpjValidator()(u"11222333000181"), u"");
  EXPECT_EQ(CpfOrCnpjValidator()(u"1"), refusal);
}

}  // namespace
}  // namespace tessaria::test
