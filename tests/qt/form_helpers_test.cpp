// The place of a field: tab pages that come to the front, and positions in containers.
#include "mask/form_helpers.h"

#include <QTabWidget>

#include "hosts/qt/conversion/units.h"
#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/text_box.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/metatypes.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class FormHelpers : public FieldFixture {
 protected:
  FormHelpers() {
    tabs_->setObjectName(QStringLiteral("tabDados"));
    for (const char* name : {"", "pagDois", ""}) {
      auto* page = new QWidget;
      page->setObjectName(QLatin1String(name));
      new QVBoxLayout(page);
      tabs_->addTab(page, QStringLiteral("Página"));
    }
    window_->layout()->addWidget(tabs_);
  }
  LineEdit* addOnPage(int page) {
    auto* edit = new LineEdit;
    edit->setObjectName(QStringLiteral("txtNaPagina"));
    tabs_->widget(page)->layout()->addWidget(edit);
    return edit;
  }
  void bringToFront(LineEdit& edit, const String& number) {
    TextBox box(edit);
    mdlObjTxt::MostraAba(makeForm(*window_)->Controls(u"txtNaPagina")->Container(), number, box);
  }
  QTabWidget* tabs_ = new QTabWidget;
};

TEST_F(FormHelpers, APageWithoutANameComesToTheFront) {
  LineEdit* field = addOnPage(2);
  show();
  bringToFront(*field, u"2");
  EXPECT_EQ(tabs_->currentIndex(), 2);
  EXPECT_EQ(window_->focusWidget(), field);
}

TEST_F(FormHelpers, TheNumberDecidesWhichPageComesToTheFrontNotThePlaceOfTheField) {
  LineEdit* field = addOnPage(2);
  show();
  bringToFront(*field, u"1");
  // The focus then brings the page of the field itself.
  EXPECT_EQ(tabs_->currentIndex(), 2);
}

TEST_F(FormHelpers, AHiddenPageStaysHidden) {
  LineEdit* field = addOnPage(1);
  show();
  tabs_->setTabVisible(1, false);
  bringToFront(*field, u"1");
  EXPECT_EQ(tabs_->currentIndex(), 0);
  EXPECT_FALSE(tabs_->isTabVisible(1));
}

TEST_F(FormHelpers, ANumberThatIsNotATabIsAnError) {
  LineEdit* field = addOnPage(1);
  show();
  for (const char16_t* number : {u"3", u"-1", u"dois"})
    EXPECT_THROW(bringToFront(*field, number), HostError);
}

TEST_F(FormHelpers, ThePositionInANestedFormIsThatOnTheScreen) {
  auto* nested = new QWidget;
  nested->setObjectName(QStringLiteral("frmDentro"));
  nested->setProperty("dbForm", QVariant::fromValue(host::ConnectionPtr()));
  auto* layout = new QVBoxLayout(nested);
  auto* field = new TsText;
  field->setObjectName(QStringLiteral("txtDentro"));
  layout->addWidget(field);
  window_->layout()->addWidget(nested);
  show();
  const auto port = makeForm(*nested)->Controls(u"txtDentro");
  const QPoint there = field->mapToGlobal(QPoint());
  EXPECT_NEAR(CLng(mdlObjTxt::PosicaoNoForm(port, u"x")), twipsX(there.x(), *field), 15);
  EXPECT_NEAR(CLng(mdlObjTxt::PosicaoNoForm(port, u"y")), twipsY(there.y(), *field), 15);
}

}  // namespace
}  // namespace tessaria::qt::tests
