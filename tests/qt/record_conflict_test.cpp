// A row that another user has changed: the window in which the operator chooses.
#include <QApplication>
#include <QDialog>
#include <QRadioButton>

#include "tests/qt/record_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// A line of the window: the accessible names of its options, "*" in front of the chosen one.
using Line = std::vector<std::string>;

class RowConflict : public RecordFixture {
 protected:
  void SetUp() override {
    RecordFixture::SetUp();
    if (IsSkipped()) return;
    QObject::connect(record_, &RecordForm::notSaved,
                     [this](const QString& reason) { reasons_ << reason; });
  }
  /// Acts in the window that the next save brings up.
  void inTheWindow(const std::function<void(QDialog&)>& act) {
    inTheNext([this, act](QDialog& window) {
      EXPECT_EQ(window.objectName(), QStringLiteral("frmConflito"));
      ++windows_;
      settleEvents();  // until it has the focus
      act(window);
    });
  }
  static std::vector<Line> linesOf(QDialog& window) {
    std::vector<Line> lines;
    for (const QRadioButton* option : window.findChildren<QRadioButton*>()) {
      if (option->objectName().startsWith(QLatin1String("meu"))) lines.emplace_back();
      lines.back().push_back((option->isChecked() ? "*" : "") +
                             option->accessibleName().toStdString());
    }
    return lines;
  }
  static QStringList textsOf(QDialog& window) {
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) texts << label->text();
    return texts;
  }
  static void strike(QDialog& window, int key, Qt::KeyboardModifiers modifiers = {}) {
    press(window, key, modifiers);
    settleEvents();
  }
  /// Both have renamed the first customer; the operator has changed the value too, and the other
  /// user the telephone.
  void changeBoth() {
    enter(name_, QStringLiteral("Zilda"));
    pages_->setCurrentIndex(1);
    enter(value_, QStringLiteral("1500"));
    asAnotherUser(u"update clientes set nome = 'Alice', telefone = '1133334444' where codigo = 1");
  }

  int windows_ = 0;
  QStringList reasons_;
};

TEST_F(RowConflict, ShowsWhatEachHasDoneAsTheFieldsShowIt) {
  changeBoth();
  inTheWindow([&](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Cliente alterado por outro usuário"));
    EXPECT_THAT(linesOf(window),
                testing::ElementsAre(
                    Line({"Nome, o meu: Zilda", "Nome, o do outro usuário: Alice"}),
                    Line({"Telefone, o meu: (11) 98765-4321",
                          "*Telefone, o do outro usuário: (11) 33334-444_"}),
                    Line({"*Valor, o meu: 1.500,00", "Valor, o do outro usuário: 10,50"})));
    const QStringList texts = textsOf(window);
    EXPECT_EQ(texts.count(QStringLiteral("alterado pelos dois: escolha")), 1);
    for (const char* former : {"Ana", "(11) 98765-4321", "10,50"})
      EXPECT_TRUE(texts.contains(QString::fromUtf8(former))) << former;
    window.reject();
  });
  save();
  EXPECT_EQ(windows_, 1);
}

TEST_F(RowConflict, AnEmptyValueSaysSo) {
  pages_->setCurrentIndex(1);
  enter(birth_, QStringLiteral("01012000"));
  asAnotherUser(u"update clientes set nascimento = null where codigo = 1");
  inTheWindow([&](QDialog& window) {
    EXPECT_THAT(linesOf(window),
                testing::ElementsAre(Line({"Nascimento, o meu: 01/01/2000",
                                           "Nascimento, o do outro usuário: (em branco)"})));
    window.reject();
  });
  save();
}

TEST_F(RowConflict, TheChoiceIsMadeAndSavedByKeyboardAlone) {
  changeBoth();
  inTheWindow([&](QDialog& window) {
    strike(window, Qt::Key_Right);
    strike(window, Qt::Key_Space);  // the other user's name
    strike(window, Qt::Key_Tab);
    strike(window, Qt::Key_Left);  // the former telephone
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  save();
  EXPECT_EQ(windows_, 1);
  EXPECT_EQ(stored(u"string_agg(concat_ws('/', nome, telefone, valor), ' ' order by codigo)"),
            "Alice/11987654321/1500.00 Bia/1234.50 Caio/0.00");
  EXPECT_EQ(textOf(name_), QStringLiteral("Alice"));
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(RowConflict, AClickOnAValueChoosesIt) {
  changeBoth();
  inTheWindow([&](QDialog& window) {
    for (QLabel* label : window.findChildren<QLabel*>())
      if (label->text() == QStringLiteral("Zilda")) click(*label);
    click(*window.findChild<QPushButton*>(QStringLiteral("btnGravar")));
  });
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(stored(u"string_agg(telefone, ' ')"), "1133334444");
}

TEST_F(RowConflict, WhatBothHaveChangedMustBeChosen) {
  changeBoth();
  inTheWindow([&](QDialog& window) {
    strike(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.focusWidget()->accessibleName(), QStringLiteral("Nome, o meu: Zilda"));
    window.reject();
  });
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(QStringLiteral("Escolha o que fica em \"Nome\".")));
  EXPECT_EQ(names(), "Alice Bia Caio");
}

TEST_F(RowConflict, GoingBackKeepsWhatWasTypedAndGuardsItStill) {
  changeBoth();
  for (int i = 1; i <= 2; ++i) {
    inTheWindow([&](QDialog& window) { strike(window, Qt::Key_Escape); });
    save();
    EXPECT_EQ(windows_, i);
    EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
    EXPECT_EQ(textOf(value_), QStringLiteral("1.500,00"));
  }
  EXPECT_EQ(reasons_.last(), QStringLiteral("Não salvo: outro usuário alterou o cliente."));
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(textOf(name_), QStringLiteral("Alice"));
  EXPECT_EQ(names(), "Alice Bia Caio");
}

TEST_F(RowConflict, AThirdChangeShowsTheWindowAgain) {
  changeBoth();
  inTheWindow([&](QDialog& window) {
    asAnotherUser(u"update clientes set nome = 'Amanda' where codigo = 1");
    inTheWindow([&](QDialog& again) {
      EXPECT_THAT(linesOf(again).front(),
                  Line({"Nome, o meu: Zilda", "Nome, o do outro usuário: Amanda"}));
      EXPECT_TRUE(textsOf(again).contains(QStringLiteral("Alice")));
      strike(again, Qt::Key_Space);
      strike(again, Qt::Key_G, Qt::AltModifier);
    });
    strike(window, Qt::Key_Space);
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  save();
  EXPECT_EQ(windows_, 2);
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(RowConflict, TheChoiceIsSavedWithTheProgramsStatements) {
  addAnItemAtEachSave();
  changeBoth();
  inTheWindow([&](QDialog& window) {
    strike(window, Qt::Key_Space);
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(items(), "1a");
}

TEST_F(RowConflict, EqualChangesAreNoConflict) {
  enter(name_, QStringLiteral("Alice"));
  asAnotherUser(u"update clientes set nome = 'Alice', telefone = null where codigo = 1");
  inTheWindow([&](QDialog& window) {
    EXPECT_THAT(linesOf(window),
                testing::ElementsAre(Line({"Telefone, o meu: (11) 98765-4321",
                                           "*Telefone, o do outro usuário: (em branco)"})));
    strike(window, Qt::Key_Return);
  });
  save();
  EXPECT_EQ(names(), "Alice Bia Caio");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(RowConflict, ARefusalAfterTheChoiceKeepsTheChoice) {
  asAnotherUser(u"alter table clientes add constraint curto check (valor < 1000) not valid");
  changeBoth();
  inTheWindow([&](QDialog& window) {
    strike(window, Qt::Key_Right);
    strike(window, Qt::Key_Space);
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  save();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(textOf(name_), QStringLiteral("Alice"));
  EXPECT_EQ(textOf(value_), QStringLiteral("1.500,00"));
  enter(value_, QStringLiteral("900"));
  save();
  EXPECT_EQ(windows_, 1);
  EXPECT_EQ(stored(u"string_agg(valor::text, ' ' order by codigo)"), "900.00 1234.50 0.00");
}

TEST_F(RowConflict, ReadingTheOthersRowMayFail) {
  changeBoth();
  proxy_->CutAt(Side::Client, {"SELECT \"codigo\""});
  save();
  EXPECT_EQ(windows_, 0);
  EXPECT_FALSE(boxes_.takeTexts().isEmpty());
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  proxy_->CancelCut();
  inTheWindow([&](QDialog& window) {
    strike(window, Qt::Key_Space);
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

// --- Columns without a field

TEST_F(RowConflict, AVersionAloneSaysThatTheDifferenceIsElsewhere) {
  record_->setVersionColumn(QStringLiteral("VERSAO"));
  addAnItemAtEachSave();
  record_->markChanged();
  asAnotherUser(u"update clientes set versao = 2 where codigo = 1");
  inTheWindow([&](QDialog& window) {
    EXPECT_THAT(linesOf(window), testing::IsEmpty());
    EXPECT_THAT(textsOf(window).join(QLatin1Char(' ')).toStdString(),
                testing::HasSubstr("A diferença não está nestes campos."));
    strike(window, Qt::Key_Return);  // goes back
  });
  save();
  EXPECT_EQ(windows_, 1);
  EXPECT_EQ(items(), "");
  inTheWindow([&](QDialog& window) { strike(window, Qt::Key_G, Qt::AltModifier); });
  save();
  EXPECT_EQ(items(), "1a");
  EXPECT_EQ(stored(u"string_agg(versao::text, ' ' order by codigo)"), "3 1 1");
}

TEST_F(RowConflict, AComputedColumnFollowsTheOthers) {
  data_->setRecordSource(
      QStringLiteral("select *, upper(nome) as maiusculo from clientes order by codigo"));
  EXPECT_TRUE(data_->refresh());
  record_->setColumnCaption(QStringLiteral("maiusculo"), QStringLiteral("Em maiúsculas"));
  changeBoth();
  inTheWindow([&](QDialog& window) {
    EXPECT_EQ(linesOf(window).size(), 3U);
    strike(window, Qt::Key_Right);
    strike(window, Qt::Key_Space);
    strike(window, Qt::Key_G, Qt::AltModifier);
  });
  save();
  EXPECT_EQ(names(), "Alice Bia Caio");
  EXPECT_EQ(CStr(data_->recordSet()->Fields().Item(u"maiusculo")->Value()), u"ALICE");
}

TEST_F(RowConflict, AColumnWithoutAFieldIsShownWhenItHasACaptionAndNeverWhenHidden) {
  birth_->setDataField(QString());
  value_->setDataField(QString());
  for (TsText* field : {birth_, value_}) field->refresh();
  record_->setColumnCaption(QStringLiteral("valor"), QStringLiteral("Limite"));
  const auto change = [this] {
    record_->discard();
    enter(name_, QStringLiteral("Zilda"));
    go(code_);
    asAnotherUser(
        u"update clientes set nome = nome || '!', valor = valor + 1, nascimento = '2001-01-01' "
        u"where codigo = 1");
  };
  change();
  inTheWindow([&](QDialog& window) {
    EXPECT_EQ(linesOf(window).size(), 2U);
    EXPECT_THAT(linesOf(window).back().front(), testing::StartsWith("Limite, o meu: "));
    window.reject();
  });
  save();
  record_->hideColumn(QStringLiteral("VALOR"));
  change();
  inTheWindow([&](QDialog& window) {
    EXPECT_EQ(linesOf(window).size(), 1U);
    window.reject();
  });
  save();
  EXPECT_EQ(windows_, 2);
}

// --- Deleted rows

class DeletedRow : public RowConflict {
 protected:
  void SetUp() override {
    RowConflict::SetUp();
    if (IsSkipped()) return;
    enter(name_, QStringLiteral("Zilda"));
    asAnotherUser(u"delete from clientes where codigo = 1");
  }
};

TEST_F(DeletedRow, MayBeSavedAsANewOne) {
  boxes_.willPress(QStringLiteral("Gravar como novo"));
  save();
  EXPECT_EQ(boxes_.takeTexts(),
            QStringList(QStringLiteral("Outro usuário excluiu o cliente depois que ele foi lido. O "
                                       "que foi digitado continua na tela.\n\nGravar como novo?")));
  EXPECT_EQ(boxes_.boxes().back().buttons,
            QStringList({"Gravar como novo", "Descartar", "Voltar"}));
  EXPECT_EQ(stored(u"string_agg(concat_ws('/', nome, telefone, nascimento), ' ' order by codigo)"),
            "Zilda/11987654321/1980-02-29 Bia Caio");
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(DeletedRow, MayBeDiscarded) {
  boxes_.willPress(QStringLiteral("Descartar"));
  save();
  EXPECT_EQ(textOf(name_), QStringLiteral("Bia"));
  EXPECT_FALSE(record_->isChanged());
  EXPECT_EQ(data_->recordSet()->RecordCount(), 2);
}

TEST_F(DeletedRow, LosesNothingByDefault) {
  save();
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->isChanged());
  EXPECT_EQ(reasons_, QStringList(QStringLiteral("Não salvo: outro usuário excluiu o cliente.")));
  boxes_.willPress(QStringLiteral("Gravar como novo"));
  EXPECT_TRUE(record_->moveNext());
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

}  // namespace
}  // namespace tessaria::qt::tests
