// The dialog of the property page, with a small page that edits the mask.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPluginLoader>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>

#include "apps/designer/page.h"
#include "tests/designer/hands.h"

namespace tessaria::tests {
namespace {

using ::tessaria::designer::Page;
using ::tessaria::designer::PageContext;
using ::tessaria::designer::PageFactory;
using ::tessaria::designer::PageHost;
using testing::ElementsAre;
using testing::IsEmpty;

/// The mask "$$$" sets the sign too.
class MaskPage final : public Page {
 public:
  explicit MaskPage(const PageContext& context) : field_(*context.selected.last()) {
    QObject::connect(&edit_, &QLineEdit::textEdited, [context] { context.changed(true); });
  }
  QWidget& widget() override { return edit_; }
  void read() override { edit_.setText(field_.mascara()); }
  void apply() override {
    if (edit_.text() == QLatin1String("falha")) throw std::runtime_error("sem memória");
    if (field_.mascara() != edit_.text()) field_.setMascara(edit_.text());
    if (field_.mascara() == QLatin1String("$$$")) field_.setValorNegativo(true);
  }

 private:
  qt::TsText& field_;
  QLineEdit edit_;
};

class PageDialog : public testing::Test {
 protected:
  PageDialog() : own_(host().pageFactory()) {
    host().setPageFactory([this](const PageContext& context) {
      for (const auto* field : context.selected) selected_ << field->objectName();
      return std::make_unique<MaskPage>(context);
    });
    select(form_, field_);
    opened_ = field_.settings();
  }
  ~PageDialog() override {
    if (pageDialog()) pageDialog()->reject();
    while (history().canUndo()) history().undo();
    host().setPageFactory(own_);
  }

  static PageHost& host() {
    QPluginLoader loader(QStringLiteral(TESSARIA_DESIGNER_PLUGIN));
    return *qobject_cast<PageHost*>(loader.instance());
  }
  QUndoStack& history() { return *form_.commandHistory(); }
  QDesignerTaskMenuExtension& menu() {
    return *qt_extension<QDesignerTaskMenuExtension*>(designer().extensionManager(), &field_);
  }
  void open() {
    menu().taskActions().first()->trigger();
    ASSERT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
  }
  static void type(const QString& mask) {
    auto* edit = pageDialog()->findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, mask);
  }
  static void pressButton(const QString& caption) {
    QTest::mouseClick(dialogButton(caption), Qt::LeftButton);
    QTest::qWait(20);
  }

  const PageFactory own_;  // the real page
  BoxWatch boxes_;
  QStringList selected_;
  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("pedido.ui"));
  qt::TsText& field_ = *fieldOf(form_, QStringLiteral("txtData"));
  QStringList opened_;
};

TEST_F(PageDialog, IsTheFirstEntryOfTheContextMenu) {
  QStringList entries;
  QTimer::singleShot(500, [&] {
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    for (const auto* action : popup->actions()) entries << action->text();
    popup->close();
  });
  const QPoint place = field_.mapToGlobal(field_.rect().center());
  operate({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
           QStringLiteral("click"), QStringLiteral("3")});
  EXPECT_TRUE(waitFor([&] { return !entries.isEmpty(); }));
  EXPECT_EQ(entries.value(0), QString::fromUtf8("Conexão..."));
}

TEST_F(PageDialog, OpensByDoubleClick) {
  clickOn(field_, 2);
  EXPECT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
}

TEST_F(PageDialog, OkIsOneStepOfTheUndo) {
  open();
  EXPECT_FALSE(dialogButton(QStringLiteral("Aplicar"))->isEnabled());
  type(QStringLiteral("$$$"));
  EXPECT_TRUE(waitFor([&] { return field_.valorNegativo(); }));
  EXPECT_EQ(history().index(), 0);
  EXPECT_TRUE(dialogButton(QStringLiteral("Aplicar"))->isEnabled());
  pressButton(QStringLiteral("OK"));
  EXPECT_EQ(pageDialog(), nullptr);
  const QStringList edited = field_.settings();
  EXPECT_TRUE(field_.valorNegativo());
  ASSERT_EQ(history().index(), 1);
  history().undo();
  EXPECT_EQ(field_.settings(), opened_);
  history().redo();
  EXPECT_EQ(field_.settings(), edited);
}

/// A program that translates its form would assign the settings again, which empties the field.
TEST_F(PageDialog, WhatItStoresIsNotTranslated) {
  const auto translated = [this] { return form_.contents().count(QLatin1String("<stringlist>")); };
  open();
  type(QStringLiteral("00"));
  pressButton(QStringLiteral("OK"));
  ASSERT_EQ(history().index(), 1);
  EXPECT_EQ(translated(), 0);
  history().undo();
  EXPECT_EQ(translated(), 0);
  history().redo();
  EXPECT_EQ(translated(), 0);
  EXPECT_EQ(field_.mascara(), QStringLiteral("00"));
}

TEST_F(PageDialog, AFieldWhoseSettingsCannotBeReadHasNone) {
  for (const auto* file : {"futuro.ui", "trocado.ui"}) {
    auto& form = *openForm(QLatin1String(file));
    auto& field = *fieldOf(form, QStringLiteral("txtFuturo"));
    const QStringList stored = field.settings();
    qt_extension<QDesignerTaskMenuExtension*>(designer().extensionManager(), &field)
        ->taskActions()
        .first()
        ->trigger();
    QTest::qWait(50);
    const QStringList boxes = boxes_.takeTexts();
    ASSERT_EQ(boxes.size(), 1) << file;
    EXPECT_TRUE(boxes.first().startsWith(
        QString::fromUtf8("As configurações do campo não puderam ser lidas")));
    EXPECT_EQ(pageDialog(), nullptr);
    EXPECT_EQ(field.settings(), stored);
    EXPECT_FALSE(form.isDirty());
  }
}

TEST_F(PageDialog, TwoVisitsAreTwoSteps) {
  open();
  type(QStringLiteral("00"));
  pressButton(QStringLiteral("OK"));
  const QStringList first = field_.settings();
  open();
  type(QStringLiteral("000"));
  pressButton(QStringLiteral("OK"));
  ASSERT_EQ(history().index(), 2);
  history().undo();
  EXPECT_EQ(field_.settings(), first);
}

TEST_F(PageDialog, OkWithoutADifferenceIsNoStep) {
  open();
  const QString mask = field_.mascara();
  type(QStringLiteral("$$$"));
  EXPECT_TRUE(waitFor([&] { return field_.valorNegativo(); }));
  type(mask);
  pressButton(QStringLiteral("OK"));
  EXPECT_EQ(pageDialog(), nullptr);
  EXPECT_EQ(field_.settings(), opened_);
  EXPECT_EQ(history().index(), 0);
  EXPECT_FALSE(form_.isDirty());
}

TEST_F(PageDialog, CancelAndTheFrameRestoreWhatWasLastApplied) {
  open();
  type(QStringLiteral("00"));
  pressButton(QStringLiteral("Cancelar"));
  EXPECT_EQ(field_.settings(), opened_);
  EXPECT_FALSE(form_.isDirty());
  open();
  type(QStringLiteral("00"));
  pressButton(QStringLiteral("Aplicar"));
  const QStringList applied = field_.settings();
  EXPECT_FALSE(dialogButton(QStringLiteral("Aplicar"))->isEnabled());
  type(QStringLiteral("000"));
  pageDialog()->close();
  QTest::qWait(20);
  EXPECT_EQ(field_.settings(), applied);
  EXPECT_EQ(history().index(), 1);
}

TEST_F(PageDialog, GetsTheSelectedFieldsWithTheClickedOneLast) {
  form_.selectWidget(fieldOf(form_, QStringLiteral("txtNumero")));
  open();
  EXPECT_EQ(selected_, QStringList({QStringLiteral("txtNumero"), QStringLiteral("txtData")}));
}

TEST_F(PageDialog, AnExceptionOfThePageIsABox) {
  open();
  type(QStringLiteral("falha"));
  pressButton(QStringLiteral("OK"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList({QString::fromUtf8("sem memória")}));
  ASSERT_NE(pageDialog(), nullptr);
  pressButton(QStringLiteral("Cancelar"));
  EXPECT_EQ(field_.settings(), opened_);
}

TEST_F(PageDialog, ClosesWithItsForm) {
  auto* manager = designer().formWindowManager();
  auto* extra = manager->createFormWindow(nullptr);
  ASSERT_TRUE(extra->setContents(form_.contents()));
  auto* other = fieldOf(*extra, QStringLiteral("txtData"));
  ASSERT_NE(other, nullptr);
  qt_extension<QDesignerTaskMenuExtension*>(designer().extensionManager(), other)
      ->taskActions()
      .first()
      ->trigger();
  ASSERT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
  delete extra;
  EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
}

TEST_F(PageDialog, WithoutAPageNothingIsOffered) {
  host().setPageFactory({});
  EXPECT_THAT(menu().taskActions(), IsEmpty());
  EXPECT_EQ(menu().preferredEditAction(), nullptr);
}

}  // namespace
}  // namespace tessaria::tests
