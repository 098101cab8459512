#include "lookup/sql_family.h"

#include <array>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {
namespace {

struct Dialeto {
  StringView Nome;
  FamiliaSql Familia;
};

constexpr std::array kDialetos{
    Dialeto{u"MS JET", FamiliaSql::Access},
    Dialeto{u"ACCESS", FamiliaSql::Access},
    Dialeto{u"MICROSOFT SQL SERVER", FamiliaSql::SqlServer},
    Dialeto{u"POSTGRESQL", FamiliaSql::PostgreSQL},
};

}  // namespace

host::ConnectionPtr ConexaoAtual() {
  if (!State().dbConexao) throw HostError(errors::ObjectNotSet);
  return State().dbConexao;
}

String NomeDialeto(const host::Connection& conexao) {
  return UCase(CStr(conexao.Properties(u"DBMS Name")));
}

FamiliaSql FamiliaDoDialeto(StringView strDialeto) {
  for (const Dialeto& dialeto : kDialetos) {
    if (dialeto.Nome == strDialeto) return dialeto.Familia;
  }
  return FamiliaSql::Desconhecida;
}

bool EhPostgreSQL(const host::Connection& conexao) {
  return FamiliaDoDialeto(NomeDialeto(conexao)) == FamiliaSql::PostgreSQL;
}

Integer VersaoPostgreSQL(const host::Connection& conexao) {
  const String versao = CStr(conexao.Properties(u"DBMS Version"));
  const Long posicao = InStr(versao, u"PostgreSQL");
  const String digitos = RTrim(Replace(Mid(versao, posicao + 11, 6), u".", u""));
  const bool soDigitos = digitos.find_first_not_of(u"0123456789") == String::npos;
  if (digitos.empty() || !soDigitos) throw HostError(errors::TypeMismatch);
  return CInt(digitos);
}

}  // namespace tessaria
