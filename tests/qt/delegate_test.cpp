// Fields as editors of Qt's models: widget mappers and the delegates of item views.
#include <QDataWidgetMapper>
#include <QItemDelegate>
#include <QItemEditorFactory>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTest>

#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

QStandardItemModel* makeModel(QObject* parent) {
  auto* model = new QStandardItemModel(3, 2, parent);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 2; ++column)
      model->setData(model->index(row, column), QStringLiteral("%1%2").arg(row).arg(column));
  return model;
}

// --- Widget mapper

class Mapper : public FieldFixture {
 protected:
  Mapper() {
    mapper_.setModel(model_);
    mapper_.addMapping(first_, 0);
    mapper_.addMapping(second_, 1);
    mapper_.toFirst();
  }
  QVariant at(int row, int column) { return model_->index(row, column).data(); }

  QStandardItemModel* const model_ = makeModel(window_.get());
  QDataWidgetMapper mapper_;
};

TEST_F(Mapper, NeedsNoPropertyName) {
  EXPECT_EQ(TsText::staticMetaObject.userProperty().name(), QByteArray("Value"));
  show();
  EXPECT_EQ(first_->text(), QStringLiteral("00"));
  mapper_.toNext();
  EXPECT_EQ(first_->text(), QStringLiteral("10"));
  EXPECT_EQ(second_->value(), QVariant(QStringLiteral("11")));
}

TEST_F(Mapper, SubmitsTheSettledValue) {
  first_->setMascara(QStringLiteral("0000"));
  first_->setTipoStrZero(1);
  show();
  type(*window_, QStringLiteral("7"));
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("00")));
  leave();
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("0007"))) << "with the zeros that leaving fills in";
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(Mapper, TabMovesOnAndSubmits) {
  show();
  type(*window_, QStringLiteral("novo"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("novo")));
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(Mapper, EnterSubmitsTheSettledValueInPlace) {
  first_->setMascara(QStringLiteral("0000"));
  first_->setTipoStrZero(1);
  show();
  type(*window_, QStringLiteral("7"));
  press(*window_, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("0007")));
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(Mapper, EscapeShowsTheModelsValueAgain) {
  show();
  type(*window_, QStringLiteral("novo"));
  press(*window_, Qt::Key_Escape);
  settleEvents();
  EXPECT_EQ(first_->text(), QStringLiteral("00"));
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("00")));
}

TEST_F(Mapper, ARefusedTextIsNotSubmitted) {
  first_->setValidator([](const String& text) { return text == u"99" ? u"Não serve" : u""; });
  show();
  QSignalSpy changes(model_, &QStandardItemModel::dataChanged);
  type(*window_, QStringLiteral("99"));
  leave();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(first_->text(), QStringLiteral("99"));
  press(*window_, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(changes.count(), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("99"));
  press(*window_, Qt::Key_Home);
  type(*window_, QStringLiteral("1"));
  leave();
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("199")));
}

TEST_F(Mapper, AButtonThatSubmitsFindsTheFieldSettled) {
  mapper_.setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
  QObject::connect(button_, &QPushButton::clicked, &mapper_, &QDataWidgetMapper::submit);
  first_->setMascara(QStringLiteral("0000"));
  first_->setTipoStrZero(1);
  show();
  type(*window_, QStringLiteral("7"));
  click(*button_);
  settleEvents();
  EXPECT_EQ(at(0, 0), QVariant(QStringLiteral("0007")));
}

TEST_F(Mapper, ADateAndANumberKeepTheirTypes) {
  first_->setTipoControle(TsText::Calendario);
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  first_->setTipoDado(7);
  second_->setMascara(QStringLiteral("$$$$.$$"));
  second_->setTipoDado(5);
  model_->setData(model_->index(0, 0), QDate(2024, 2, 29));
  model_->setData(model_->index(0, 1), 12.5);
  show();
  EXPECT_EQ(first_->text(), QStringLiteral("29/02/2024"));
  EXPECT_EQ(second_->text(), QStringLiteral("12,50"));
  press(*window_, Qt::Key_Home);
  type(*window_, QStringLiteral("01"));
  leave();
  EXPECT_EQ(at(0, 0), QVariant(QDate(2024, 2, 1)));
  type(*window_, QStringLiteral("3,25"));
  first_->setFocus();
  settleEvents();
  EXPECT_EQ(at(0, 1), QVariant(3.25));
}

TEST_F(Mapper, ANullOfTheModelIsNull) {
  model_->setData(model_->index(1, 0), QVariant(QMetaType(QMetaType::QString)));
  show();
  mapper_.toNext();
  EXPECT_EQ(first_->text(), QString());
  EXPECT_TRUE(first_->value().isNull());
}

// --- Delegates

class Cells : public FieldFixture, public testing::WithParamInterface<bool> {
 protected:
  Cells() {
    view_->setModel(model_);
    window_->layout()->addWidget(view_);
    factory_.registerEditor(QMetaType::QString, new QStandardItemEditorCreator<TsText>);
    if (GetParam()) {
      auto* delegate = new QStyledItemDelegate(view_);
      delegate->setItemEditorFactory(&factory_);
      view_->setItemDelegate(delegate);
    } else {
      auto* delegate = new QItemDelegate(view_);
      delegate->setItemEditorFactory(&factory_);
      view_->setItemDelegate(delegate);
    }
    window_->resize(500, 500);
    show();
  }
  ~Cells() override { window_.reset(); }
  TsText* editor() {
    for (TsText* field : view_->viewport()->findChildren<TsText*>())
      if (field->isVisible()) return field;
    return nullptr;
  }
  TsText* edit(int row, int column) {
    view_->setFocus();
    view_->setCurrentIndex(model_->index(row, column));
    view_->edit(model_->index(row, column));
    settleEvents();
    TsText* field = editor();
    if (field) {
      field->setUsaChecaRelacao(false);
      field->setValidator([](const String& text) { return text == u"99" ? u"Não serve" : u""; });
    }
    return field;
  }
  QString at(int row, int column) { return model_->index(row, column).data().toString(); }
  void clickCell(int row, int column) {
    QTest::mouseClick(view_->viewport(), Qt::LeftButton, {},
                      view_->visualRect(model_->index(row, column)).center());
    settleEvents();
  }

  QItemEditorFactory factory_;
  QStandardItemModel* const model_ = makeModel(window_.get());
  QTableView* const view_ = new QTableView;
};

TEST_P(Cells, AreEditedByFields) {
  TsText* field = edit(0, 0);
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->text(), QStringLiteral("00"));
  EXPECT_TRUE(field->isAncestorOf(window_->focusWidget()));
  type(*window_, QStringLiteral("novo"));
  EXPECT_EQ(field->text(), QStringLiteral("novo")) << "the cell's text was selected";
}

TEST_P(Cells, TabCommitsAndOpensTheNextOne) {
  ASSERT_NE(edit(0, 0), nullptr);
  editor()->setMascara(QStringLiteral("0000"));
  editor()->setTipoStrZero(1);
  editor()->setSelStart(0);
  editor()->setSelLength(4);
  type(*window_, QStringLiteral("7"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(at(0, 0), QStringLiteral("0007"));
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->text(), QStringLiteral("01"));
  press(*window_, Qt::Key_Backtab, Qt::ShiftModifier);
  settleEvents();
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->text(), QStringLiteral("0007"));
}

TEST_P(Cells, EnterCommitsAndCloses) {
  button_->setDefault(true);
  QSignalSpy clicks(button_, &QPushButton::clicked);
  ASSERT_NE(edit(1, 0), nullptr);
  editor()->setMascara(QStringLiteral("0000"));
  editor()->setTipoStrZero(1);
  editor()->setSelStart(0);
  editor()->setSelLength(4);
  type(*window_, QStringLiteral("7"));
  press(*window_, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(at(1, 0), QStringLiteral("0007"));
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(clicks.count(), 0) << "the key is the cell's";
}

TEST_P(Cells, EscapeClosesWithoutCommit) {
  ASSERT_NE(edit(1, 0), nullptr);
  type(*window_, QStringLiteral("99"));
  press(*window_, Qt::Key_Escape);
  settleEvents();
  EXPECT_EQ(at(1, 0), QStringLiteral("10"));
  EXPECT_EQ(editor(), nullptr);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_P(Cells, AClickElsewhereCommits) {
  ASSERT_NE(edit(0, 0), nullptr);
  type(*window_, QStringLiteral("um"));
  clickCell(2, 1);
  EXPECT_EQ(at(0, 0), QStringLiteral("um"));
  EXPECT_EQ(editor(), nullptr);
  ASSERT_NE(edit(2, 1), nullptr);
  type(*window_, QStringLiteral("dois"));
  first_->setFocus();
  settleEvents();
  EXPECT_EQ(at(2, 1), QStringLiteral("dois"));
  EXPECT_EQ(editor(), nullptr);
}

TEST_P(Cells, ARefusedTextKeepsItsEditorOpen) {
  ASSERT_NE(edit(0, 0), nullptr);
  type(*window_, QStringLiteral("99"));
  const std::function<void()> ways[] = {
      [this] { press(*window_, Qt::Key_Tab); }, [this] { press(*window_, Qt::Key_Return); },
      [this] { clickCell(2, 1); }, [this] { first_->setFocus(); }};
  for (const auto& leaves : ways) {
    leaves();
    settleEvents();
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("99"));
    EXPECT_EQ(at(0, 0), QStringLiteral("00"));
  }
}

TEST_P(Cells, AKeyThatOpensTheEditorIsItsFirstCharacter) {
  view_->setEditTriggers(QAbstractItemView::AnyKeyPressed);
  view_->setFocus();
  view_->setCurrentIndex(model_->index(0, 0));
  settleEvents();
  type(*window_, QStringLiteral("abc"));
  ASSERT_NE(editor(), nullptr);
  editor()->setUsaChecaRelacao(false);
  EXPECT_EQ(editor()->text(), QStringLiteral("abc"));
  press(*window_, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(at(0, 0), QStringLiteral("abc"));
}

INSTANTIATE_TEST_SUITE_P(Delegates, Cells, testing::Values(false, true), [](const auto& each) {
  return each.param ? "QStyledItemDelegate" : "QItemDelegate";
});

}  // namespace
}  // namespace tessaria::qt::tests
