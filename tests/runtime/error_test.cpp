// Errors: descriptions, and the pending error of a thread.
#include "tessaria/error.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

constexpr StringView kUnknown = u"Erro definido pelo aplicativo ou pelo objeto";

TEST(ErrorDescriptions, OfTheClassicNumbers) {
  const std::pair<Long, StringView> rows[] = {
      {5, u"Chamada de procedimento ou argumento inválido"},
      {6, u"Estouro"},
      {7, u"Memória insuficiente"},
      {9, u"Subscrito fora do intervalo"},
      {11, u"Divisão por zero"},
      {13, u"Tipos incompatíveis"},
      {28, u"Espaço insuficiente para pilha"},
      {51, u"Erro interno"},
      {52, u"Nome ou número de arquivo inválido"},
      {53, u"Arquivo não encontrado"},
      {55, u"Arquivo já aberto"},
      {57, u"Erro de E/S de dispositivo"},
      {58, u"Arquivo já existe"},
      {61, u"Disco cheio"},
      {68, u"Dispositivo não disponível"},
      {70, u"Permissão negada"},
      {71, u"O disco não está pronto"},
      {75, u"Erro de acesso ao caminho/arquivo"},
      {76, u"Caminho não encontrado"},
      {91, u"Variável de objeto ou variável do bloco With não definida"},
      {94, u"Uso inválido de Null"},
      {380, u"Valor de propriedade inválido"},
      {381, u"Índice de matriz de propriedade inválido"},
      {382, u"Set não suportado em tempo de execução"},
      {383, u"Set não suportado (propriedade somente leitura)"},
      {393, u"Get não suportado em tempo de execução"},
      {394, u"Get não suportado (propriedade somente gravação)"},
      {400, u"Formulário já está sendo exibido; não pode ser mostrado como modal"},
      {401,
       u"Não é possível mostrar formulário não modal quando um formulário modal está sendo "
       u"exibido"},
      {424, u"Objeto obrigatório"},
      {429, u"O componente ActiveX não pode criar o objeto"},
      {438, u"O objeto não aceita esta propriedade ou método"},
      {440, u"Erro de automação"},
      {445, u"O objeto não aceita esta ação"},
      {449, u"Argumento não opcional"},
      {450, u"Número de argumentos incorreto ou atribuição de propriedade inválida"},
      {457, u"Esta chave já está associada a um elemento desta coleção"},
      {461, u"Método ou membro de dados não encontrado"},
      {481, u"Figura inválida"},
      {730, u"Controle não encontrado"},
  };
  for (const auto& [number, description] : rows) {
    EXPECT_EQ(ErrorDescription(number), description) << number;
    EXPECT_EQ(HostError(number).Description(), description);
    EXPECT_EQ(HostError(number).Number(), number);
  }
}

TEST(ErrorDescriptions, EveryNumberOfTheLibraryHasItsOwn) {
  using namespace errors;
  for (const Long number : {InvalidArgument,     Overflow,
                            SubscriptOutOfRange, DivisionByZero,
                            TypeMismatch,        FileNotFound,
                            DeviceUnavailable,   DiskNotReady,
                            PathNotFound,        ObjectNotSet,
                            InvalidUseOfNull,    InvalidPropertyValue,
                            PropertyIsReadOnly,  PropertyIsWriteOnly,
                            ObjectRequired,      NoSuchMember,
                            DuplicateKey,        ControlNotFound,
                            ItemNotFound,        NoCurrentRecord,
                            InvalidConnection,   ObjectClosed,
                            NotUpdatable,        RowChanged,
                            ProviderError,       Long{3001},
                            Long{3219},          Long{3705},
                            Long{-2147217887}}) {
    EXPECT_NE(ErrorDescription(number), kUnknown) << number;
    EXPECT_FALSE(ErrorDescription(number).empty()) << number;
  }
}

TEST(ErrorDescriptions, OfAnyOtherNumber) {
  EXPECT_EQ(ErrorDescription(1000), kUnknown);
  EXPECT_EQ(ErrorDescription(0), kUnknown);
  EXPECT_EQ(ErrorDescription(-1), kUnknown);
}

TEST(HostErrors, KeepTheDescriptionGiven) {
  const HostError error(3265, u"Campo «x» não há");
  EXPECT_EQ(error.Number(), 3265);
  EXPECT_EQ(error.Description(), u"Campo «x» não há");
  EXPECT_STREQ(error.what(), "Campo «x» não há");
}

TEST(PendingError, IsSetAndCleared) {
  Err().Set(HostError(13));
  EXPECT_EQ(Err().Number, 13);
  EXPECT_EQ(Err().Description, u"Tipos incompatíveis");
  Err().Clear();
  EXPECT_EQ(Err().Number, 0);
  EXPECT_EQ(Err().Description, u"");
}

TEST(PendingError, IsOfItsThread) {
  Err().Set(HostError(6));
  std::thread([] {
    EXPECT_EQ(Err().Number, 0);
    Err().Set(HostError(11));
    EXPECT_EQ(Err().Number, 11);
  }).join();
  EXPECT_EQ(Err().Number, 6);
  Err().Clear();
}

}  // namespace
}  // namespace tessaria
