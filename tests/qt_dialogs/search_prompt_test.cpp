// The prompt of a search, which contains a complete field.
#include "browse/search_prompt.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTest>

#include "tessaria/qt/form.h"
#include "tessaria/text.h"
#include "tests/qt_dialogs/lookup_fixture.h"
#include "tests/support/comma_locale.h"

namespace tessaria::qt::tests {
namespace {

class SearchPromptWindow : public LookupFixture {
 protected:
  struct Search {
    Long tipo = 8;
    Integer width = 2700;
    String caption = u"Nome";
    bool completes = false;
    String mask = u"";
  };
  /// The condition of the answer; empty for none.
  QString ask(const Search& search, ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), std::move(script));
    String clause;
    const bool answered = mdlObjTxt::tsMostraFormPesquisa(
        u"clientes", u"nome", search.tipo, 1, search.caption, search.width, search.completes,
        search.mask, 0, false, u"", clause, false);
    return answered ? toQt(clause) : QString();
  }
  static TsText& field(QDialog& window) {
    return at<TsText>(window, QStringLiteral("editPesquisa"));
  }
  static QPushButton& ok(QDialog& window) {
    return at<QPushButton>(window, QStringLiteral("btnOk"));
  }
};

TEST_F(SearchPromptWindow, EnterReturnsTheTextOfTheField) {
  EXPECT_EQ(ask({},
                [](QDialog& w) {
                  EXPECT_EQ(w.focusWidget(), editOf(field(w)));
                  EXPECT_EQ(w.focusWidget()->accessibleName(), QStringLiteral("Valor a pesquisar"));
                  strike(w, QStringLiteral("D'Avila"));
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome ilike 'D''Avila%'"));
}

TEST_F(SearchPromptWindow, TheButtonsWorkByMouseAndMnemonic) {
  EXPECT_EQ(ask({},
                [](QDialog& w) {
                  strike(w, QStringLiteral("Ma"));
                  click(ok(w));
                }),
            QStringLiteral("clientes.nome ilike 'Ma%'"));
  EXPECT_EQ(ask({},
                [](QDialog& w) {
                  strike(w, QStringLiteral("Ma"));
                  press(w, Qt::Key_C, Qt::AltModifier);
                  QTest::qWait(250);  // a mnemonic shows the button pressed first
                }),
            QString());
}

TEST_F(SearchPromptWindow, EscapeCancels) {
  EXPECT_EQ(ask({},
                [](QDialog& w) {
                  strike(w, QStringLiteral("Ma"));
                  press(w, Qt::Key_Escape);
                }),
            QString());
  EXPECT_EQ(ask({}, [](QDialog& w) { w.close(); }), QString());
}

TEST_F(SearchPromptWindow, ShowsInFullWhatIsSearchedFor) {
  ask({.width = 0, .caption = u"Limite de crédito a partir de <R&D>"}, [](QDialog& w) {
    const QString text = QStringLiteral("Pesquisa Limite de crédito a partir de <R&D>");
    const auto* caption = w.findChild<QLabel*>();
    EXPECT_EQ(caption->text(), text);
    EXPECT_GE(caption->width(), caption->fontMetrics().horizontalAdvance(text));
    EXPECT_EQ(w.focusWidget()->accessibleDescription(), text);
    picture(w, QStringLiteral("pesquisa_longa"));
    w.close();
  });
}

// The field is left for the cancel button: its date is not checked, and its text is not used.
TEST_F(SearchPromptWindow, ClosingByTheFrameCancels) {
  const Search search{.tipo = 7, .mask = u"dd/mm/yyyy"};
  QStringList active;
  EXPECT_EQ(ask(search,
                [&](QDialog& w) {
                  QObject::connect(&field(w), &TsText::browseReturn,
                                   [&] { active << toQt(makeForm(w)->ActiveControl()->Name()); });
                  strike(w, QStringLiteral("31021999"));
                  closeByFrame(w);
                  EXPECT_FALSE(w.isVisible());
                }),
            QString());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(active, QStringList({"btnCancelar"}));
  // When it is left for the other button, the field refuses its text.
  ask(search, [this](QDialog& w) {
    strike(w, QStringLiteral("31021999"));
    click(ok(w));
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    closeByFrame(w);
  });
}

TEST_F(SearchPromptWindow, AnInvalidNumberIsNotAccepted) {
  EXPECT_EQ(ask({.tipo = 2},
                [](QDialog& w) {
                  EXPECT_FALSE(ok(w).isEnabled());
                  strike(w, QStringLiteral("12,5x"));
                  EXPECT_FALSE(ok(w).isEnabled());
                  press(w, Qt::Key_Return);
                  EXPECT_TRUE(w.isVisible());
                  press(w, Qt::Key_Backspace);
                  EXPECT_TRUE(ok(w).isEnabled());
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome = 12.5"));
}

TEST_F(SearchPromptWindow, ANumberHasAPointInItsStatementWhateverTheLocale) {
  const test::CommaLocale locale;
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
  EXPECT_EQ(ask({.tipo = 2},
                [](QDialog& w) {
                  strike(w, QStringLiteral("1234567,5"));
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome = 1234567.5"));
  QLocale::setDefault(before);
}

TEST_F(SearchPromptWindow, HasTheRequestedWidthOrAtLeastWhatItNeeds) {
  ask({.width = 6000}, [](QDialog& w) {
    EXPECT_EQ(field(w).width(), 400);
    EXPECT_GE(w.width(), 6500 / 15);
    w.close();
  });
  ask({.width = 0}, [](QDialog& w) {
    EXPECT_GE(field(w).width(), field(w).minimumSizeHint().width());
    EXPECT_GE(w.width(), 3500 / 15);
    picture(w, QStringLiteral("pesquisa_estreita"));
    w.close();
  });
}

TEST_F(SearchPromptWindow, ADateIsTypedUnderItsMaskAndHasItsCalendar) {
  const Search search{.tipo = 7, .mask = u"dd/mm/yyyy"};
  EXPECT_EQ(ask(search,
                [](QDialog& w) {
                  picture(w, QStringLiteral("pesquisa_data"));
                  EXPECT_FALSE(field(w).findChild<QAbstractButton*>()->icon().isNull());
                  strike(w, QStringLiteral("31122016"));
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome = '2016-12-31'::date"));
}

TEST_F(SearchPromptWindow, ADateCanBeChosenInTheCalendarByKeysAlone) {
  const Search search{.tipo = 7, .mask = u"dd/mm/yyyy"};
  EXPECT_EQ(ask(search,
                [this](QDialog& w) {
                  strike(w, QStringLiteral("31122016"));
                  driver_.willShow(QStringLiteral("frmCalendario"), [](QDialog& calendar) {
                    press(calendar, Qt::Key_Left);
                    press(calendar, Qt::Key_Return);
                  });
                  press(w, Qt::Key_PageDown);
                  EXPECT_EQ(w.focusWidget(), editOf(field(w)));
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome = '2016-12-30'::date"));
}

TEST_F(SearchPromptWindow, ACompletingTextHasAListOfItsOwn) {
  // The completion after the choice finds the chosen text.
  connection_->OnStatement = [this](const String& statement) {
    memory::Rows found = rows_;
    if (InStr(statement, u"15%") != 0) found.Cells = {rows_.Cells[1]};
    return found;
  };
  EXPECT_EQ(ask({.completes = true},
                [this](QDialog& w) {
                  driver_.willShow(QStringLiteral("frmBrowse"), [](QDialog& list) {
                    press(list, Qt::Key_Down);
                    press(list, Qt::Key_Return);
                  });
                  press(w, Qt::Key_PageDown);
                  EXPECT_EQ(w.focusWidget(), editOf(field(w)));
                  EXPECT_TRUE(ok(w).isEnabled());
                  press(w, Qt::Key_Return);
                }),
            QStringLiteral("clientes.nome ilike '15%'"));
}

TEST_F(SearchPromptWindow, ATextCompletesFromTheTable) {
  connection_->OnStatement = [](const String&) -> memory::Rows {
    return {{{u"nome"}, {u"nome2"}}, {{u"Maria", u"Maria"}}};
  };
  ask({.completes = true}, [](QDialog& w) {
    strike(w, QStringLiteral("Ma"));
    EXPECT_EQ(editOf(field(w))->text(), QStringLiteral("Maria"));
    EXPECT_EQ(editOf(field(w))->selectedText(), QStringLiteral("ria"));
    w.close();
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
