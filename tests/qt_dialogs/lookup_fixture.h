// A lookup over a database in memory, with the list as a real window.
#pragma once

#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include "browse/lookup_run.h"
#include "hosts/qt/widgets/tool_bar.h"
#include "tessaria/memory/connection.h"
#include "tessaria/qt/form.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {

class LookupFixture : public DialogFixture {
 protected:
  LookupFixture() {
    State().dbConexao = connection_;
    connection_->OnStatement = [this](const String&) { return rows_; };
    columns_.Add(u"codigo", u"Código", u"0000", 1200, true);
    columns_.Add(u"nome", u"Nome do cliente", u"", 3600, true);
    columns_.Add(u"cidade", u"Cidade", u"", 2400, true);
    columns_.Add(u"desde", u"Cliente desde", u"dd/mm/yyyy", 1500, true);
    columns_.Add(u"limite", u"Limite", u"#,##0.00", 1500, true);
  }
  ~LookupFixture() override {
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }

  void addSearch(Long indice, const String& caption, Long tipo = 8, const String& mask = u"") {
    searches_->Add(indice, caption, u"nome", tipo, 1, mask, 2700, 0, false, false, 0, 0, u"");
  }
  /// Opens the list; returns the key that the operator chose, or the old one.
  QString look(ModalDriver::Script script, Variant value = Variant()) {
    driver_.willShow(QStringLiteral("frmBrowse"), std::move(script));
    return toQt(mdlObjTxt::VerBrowse(1500, 1500, box_, value, u"clientes", u"codigo", u"",
                                     u"nome, cidade, desde, limite", u"", u"", u"ativo = 1",
                                     u"Clientes", TipoControle::Browse, makeForm(*owner_), columns_,
                                     searches_, u"", 0));
  }

  static QTableView& view(QDialog& window) { return *window.findChild<QTableView*>(); }
  static QString cell(QDialog& window, int row, int column) {
    return view(window).model()->index(row, column).data().toString();
  }
  static int currentRow(QDialog& window) { return view(window).currentIndex().row(); }
  static void clickCell(QDialog& window, int row, bool twice = false) {
    auto& table = view(window);
    const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    if (twice) QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
  }
  static void clickHeader(QDialog& window, int column) {
    QHeaderView& header = *view(window).horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(column) + 10, header.height() / 2));
  }
  static MenuButton& searchButton(QDialog& window) {
    return *at(window, QStringLiteral("barBrowse")).findChild<MenuButton*>();
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::Rows rows_{
      {{u"codigo", host::type::Integer},
       {u"nome"},
       {u"cidade"},
       {u"desde", host::type::Date},
       {u"limite", host::type::Numeric, 0, true, true, 12, 2}},
      {{Long{1}, u"Ana Maria de Souza", u"Assis", CDate(u"15/03/2016"), 1234.5},
       {Long{15}, u"Bruno & Filhos Ltda.", u"Bauru", CDate(u"01/02/2020"), 98765.0},
       {Long{7}, u"Casa da Lavoura", u"Assis", Variant::Null(), 0.0},
       {Long{20}, u"D'Avila Materiais para Construção", u"Tupã", CDate(u"30/11/2021"), 250.75}}};
  ListaColunas columns_;
  std::shared_ptr<Pesquisa> searches_ = std::make_shared<Pesquisa>();
};

}  // namespace tessaria::qt::tests
