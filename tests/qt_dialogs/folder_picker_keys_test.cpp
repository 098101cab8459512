// Navigation in the folder picker by Tab, mnemonics and Enter.
#include <QLabel>

#include "tests/qt_dialogs/folder_picker_window.h"

namespace tessaria::qt::tests {
namespace {

class FolderPickerKeys : public FolderPicker {};

TEST_F(FolderPickerKeys, EnteringTheFilesByTabSelectsOne) {
  const auto comeByTab = [](QDialog& w) {
    EXPECT_EQ(files(w).selected(), QString());
    press(w, Qt::Key_Tab);
    EXPECT_EQ(w.focusWidget(), &files(w));
    EXPECT_EQ(files(w).selected(), QStringLiteral("aviso.txt"));
  };
  EXPECT_EQ(pick(Files, in("Vendas"),
                 [&](QDialog& w) {
                   comeByTab(w);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/aviso.txt"));
  EXPECT_EQ(pick(Files, in("Vendas"),
                 [&](QDialog& w) {
                   comeByTab(w);
                   press(w, Qt::Key_Down);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/carta.DOC"));
  EXPECT_EQ(pick(Files, in("Vendas/carta.DOC"),
                 [](QDialog& w) {
                   press(w, Qt::Key_Tab);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/carta.DOC"));
}

TEST_F(FolderPickerKeys, TabGoesFromTopToBottomAndTheFirstFocusIsOnTheFolders) {
  pick(Files, in("Vendas"), [](QDialog& w) {
    const QList<QWidget*> order{&tree(w),
                                &files(w),
                                &hiddenSwitch(w),
                                &at(w, QStringLiteral("btnConfirmar")),
                                &at(w, QStringLiteral("btnVoltar")),
                                &drives(w)};
    for (QWidget* widget : order) {
      EXPECT_EQ(w.focusWidget(), widget) << widget->objectName().toStdString();
      press(w, Qt::Key_Tab);
    }
    EXPECT_EQ(w.focusWidget(), &tree(w));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPickerKeys, TheMnemonicsOfTheListsMoveTheFocusToThem) {
  pick(Files, in("Vendas"), [](QDialog& w) {
    const struct {
      int key;
      QWidget* list;
      const char* name;
    } kLists[] = {{Qt::Key_U, &drives(w), "Unidade"},
                  {Qt::Key_A, &files(w), "Arquivos"},
                  {Qt::Key_D, &tree(w), "Diretórios"}};
    for (const auto& row : kLists) {
      press(w, row.key, Qt::AltModifier);
      EXPECT_EQ(w.focusWidget(), row.list) << row.name;
      EXPECT_EQ(row.list->accessibleName(), QString::fromUtf8(row.name));
    }
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPickerKeys, WithoutFilesToShowTheirNameIsAlsoHidden) {
  const auto title = [](QDialog& w) {
    for (auto* label : w.findChildren<QLabel*>())
      if (label->buddy() == &files(w)) return label;
    return static_cast<QLabel*>(nullptr);
  };
  frmDiretorio form;
  for (const bool showsFiles : {false, true, false}) {
    driver_.willShow(QStringLiteral("frmDiretorio"), [&](QDialog& w) {
      ASSERT_TRUE(title(w));
      EXPECT_EQ(title(w)->isVisible(), showsFiles);
      EXPECT_EQ(files(w).isVisible(), showsFiles);
      press(w, Qt::Key_Escape);
    });
    form.ExecutaDiretorio(900.0f, 900.0f, 7500, fromQt(in("Vendas")), showsFiles, u"");
  }
}

TEST_F(FolderPickerKeys, TheButtonsHaveTheirKeys) {
  const auto leaves = [&](const ModalDriver::Script& way) {
    return pick(Folders, in("Vendas"), [&](QDialog& w) {
      press(w, Qt::Key_Down);
      way(w);
      QTest::qWait(250);  // a mnemonic shows the button pressed first
    });
  };
  EXPECT_EQ(leaves([](QDialog& w) { press(w, Qt::Key_C, Qt::AltModifier); }), in("Vendas/2015"));
  EXPECT_EQ(leaves([](QDialog& w) { press(w, Qt::Key_V, Qt::AltModifier); }), in("Vendas"));
  EXPECT_EQ(leaves([](QDialog& w) {
              hiddenSwitch(w).setFocus();
              press(w, Qt::Key_Return);
            }),
            in("Vendas/2015"));
}

}  // namespace
}  // namespace tessaria::qt::tests
