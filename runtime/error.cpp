#include "tessaria/error.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tessaria/utf8.h"

namespace tessaria {

namespace {

struct Entry {
  Long Number;
  StringView Description;
};

constexpr Entry kDescriptions[] = {
    {errors::InvalidArgument, u"Chamada de procedimento ou argumento inválido"},
    {errors::Overflow, u"Estouro"},
    {errors::OutOfMemory, u"Memória insuficiente"},
    {errors::SubscriptOutOfRange, u"Subscrito fora do intervalo"},
    {errors::DivisionByZero, u"Divisão por zero"},
    {errors::TypeMismatch, u"Tipos incompatíveis"},
    {28, u"Espaço insuficiente para pilha"},
    {51, u"Erro interno"},
    {52, u"Nome ou número de arquivo inválido"},
    {errors::FileNotFound, u"Arquivo não encontrado"},
    {55, u"Arquivo já aberto"},
    {57, u"Erro de E/S de dispositivo"},
    {58, u"Arquivo já existe"},
    {61, u"Disco cheio"},
    {errors::DeviceUnavailable, u"Dispositivo não disponível"},
    {70, u"Permissão negada"},
    {errors::DiskNotReady, u"O disco não está pronto"},
    {75, u"Erro de acesso ao caminho/arquivo"},
    {errors::PathNotFound, u"Caminho não encontrado"},
    {errors::ObjectNotSet, u"Variável de objeto ou variável do bloco With não definida"},
    {errors::InvalidUseOfNull, u"Uso inválido de Null"},
    {errors::InvalidPropertyValue, u"Valor de propriedade inválido"},
    {381, u"Índice de matriz de propriedade inválido"},
    {382, u"Set não suportado em tempo de execução"},
    {errors::PropertyIsReadOnly, u"Set não suportado (propriedade somente leitura)"},
    {393, u"Get não suportado em tempo de execução"},
    {errors::PropertyIsWriteOnly, u"Get não suportado (propriedade somente gravação)"},
    {400, u"Formulário já está sendo exibido; não pode ser mostrado como modal"},
    {401,
     u"Não é possível mostrar formulário não modal quando um formulário modal está sendo exibido"},
    {errors::ObjectRequired, u"Objeto obrigatório"},
    {429, u"O componente ActiveX não pode criar o objeto"},
    {errors::NoSuchMember, u"O objeto não aceita esta propriedade ou método"},
    {440, u"Erro de automação"},
    {445, u"O objeto não aceita esta ação"},
    {449, u"Argumento não opcional"},
    {450, u"Número de argumentos incorreto ou atribuição de propriedade inválida"},
    {errors::DuplicateKey, u"Esta chave já está associada a um elemento desta coleção"},
    {461, u"Método ou membro de dados não encontrado"},
    {481, u"Figura inválida"},
    {errors::ControlNotFound, u"Controle não encontrado"},
    {3001,
     u"Os argumentos são do tipo incorreto, estão fora do intervalo aceitável ou estão em "
     u"conflito uns com os outros."},
    {errors::NoCurrentRecord,
     u"BOF ou EOF é verdadeiro ou o registro atual foi excluído. A operação solicitada requer um "
     u"registro atual."},
    {3219, u"A operação não é permitida neste contexto."},
    {errors::NotUpdatable,
     u"O conjunto de registros atual não oferece suporte para atualização. Isso pode ser uma "
     u"limitação do provedor ou do tipo de bloqueio selecionado."},
    {errors::ItemNotFound,
     u"O item não pode ser encontrado na coleção correspondente ao nome ou ordinal solicitado."},
    {errors::ObjectClosed, u"A operação não é permitida quando o objeto está fechado."},
    {3705, u"A operação não é permitida quando o objeto está aberto."},
    {errors::StillExecuting,
     u"O banco de dados ainda está executando outro comando. Tente de novo quando ele terminar."},
    {errors::Cancelled, u"A operação foi cancelada. Nada foi gravado."},
    {errors::TimeOut, u"O tempo limite expirou. Nada foi gravado."},
    {errors::WriteInDoubt,
     u"O registro pode ter sido gravado ou não: a conexão com o servidor caiu antes da resposta. "
     u"Confira antes de gravar outra vez."},
    {errors::InvalidConnection,
     u"A conexão não pode ser usada para executar esta operação. Ela está fechada ou é inválida "
     u"neste contexto."},
    {-2147217887,
     u"A operação em várias etapas gerou erros. Verifique cada um dos valores de status."},
    {errors::RowChanged,
     u"A linha não pôde ser localizada para atualização. Alguns valores podem ter sido alterados "
     u"desde a última leitura."},
    {errors::ProviderError, u"Erro não especificado"},
};

constexpr StringView kUnknown = u"Erro definido pelo aplicativo ou pelo objeto";

}  // namespace

String ErrorDescription(Long number) {
  const auto* entry = std::ranges::find(kDescriptions, number, &Entry::Number);
  return String(entry == std::end(kDescriptions) ? kUnknown : entry->Description);
}

HostError::HostError(Long number) : HostError(number, ErrorDescription(number)) {}

HostError::HostError(Long number, String description)
    : number_(number), description_(std::move(description)), utf8_(ToUtf8(description_)) {}

void ErrObject::Set(const HostError& error) {
  Number = error.Number();
  Description = error.Description();
}

void ErrObject::Clear() {
  Number = 0;
  Description.clear();
}

ErrObject& Err() {
  thread_local ErrObject error;
  return error;
}

}  // namespace tessaria
