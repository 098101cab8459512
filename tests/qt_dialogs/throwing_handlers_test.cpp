// Every event that a dialog's classes raise, with a handler that throws: the window stays open.
#include <QDir>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <stdexcept>

#include "hosts/qt/widgets/folder_tree.h"
#include "tessaria/host/application.h"
#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/qt_dialogs/long_rows.h"

namespace tessaria::qt::tests {
namespace {

using host::WidgetKind;

constexpr host::WidgetDescription kThrowingWidgets[] = {
    {u"grade", WidgetKind::DataGrid, u"Registros"},
    {u"pasta", WidgetKind::FolderList, u"Pastas"},
};
constexpr host::DialogDescription kThrowingDescription{u"frmLista", u"Lista", kThrowingWidgets};

struct Thrower {
  const char* name;
  void (*throws)();
};
void PrintTo(const Thrower& row, std::ostream* out) { *out << row.name; }

class ThrowingHandlers : public DialogFixture, public testing::WithParamInterface<Thrower> {
 protected:
  ThrowingHandlers() {
    grid_.DataSource(rows_);
    QDir(home_.path()).mkpath(QStringLiteral("Vendas"));
    QDir(home_.path()).mkpath(QStringLiteral("Compras"));
    folders_.Path(fromQt(home_.path()));
  }
  /// What the failing handlers do.
  std::function<void()> fail() {
    return [this] {
      ++calls_;
      GetParam().throws();
    };
  }
  void show(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmLista"), [&](QDialog& window) {
      window.resize(600, 400);
      settleEvents();
      boxes_.takeTexts();
      calls_ = 0;
      script(window);
      EXPECT_TRUE(window.isVisible());
      window.close();
    });
    dialog_->ShowModal();
  }
  void expectOneBox() {
    settleEvents();
    EXPECT_EQ(std::exchange(calls_, 0), 1);
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
  }
  static QTableView& view(QDialog& window) { return *window.findChild<QTableView*>(); }
  static FolderTree& tree(QDialog& window) {
    return at<FolderTree>(window, QStringLiteral("pasta"));
  }

  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kThrowingDescription);
  host::DataGrid& grid_ = dialog_->Find<host::DataGrid>(u"grade");
  host::FolderList& folders_ = dialog_->Find<host::FolderList>(u"pasta");
  std::shared_ptr<LongRows> rows_ = std::make_shared<LongRows>(50);
  QTemporaryDir home_;
  int calls_ = 0;
};

TEST_P(ThrowingHandlers, OfTheWindowsSize) {
  dialog_->OnResize = fail();
  show([&](QDialog& window) {
    window.resize(500, 420);
    expectOneBox();
  });
}

// Only once: the box that reports the failure makes the window active again.
TEST_P(ThrowingHandlers, OfTheWindowBecomingActive) {
  show([&](QDialog&) {
    dialog_->OnActivate = [this] {
      dialog_->OnActivate = nullptr;
      fail()();
    };
    App().ShowMessageBox(dialog_->hWnd(), u"Recado", 0, u"");
    EXPECT_EQ(boxes_.takeTexts(), QStringList({"Recado"}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return calls_ == 1; }));
    expectOneBox();
  });
}

TEST_P(ThrowingHandlers, OfTheKeysForAnotherOrder) {
  grid_.OnHeadClick = [this](Long) { fail()(); };
  show([&](QDialog& window) {
    view(window).setFocus();
    press(window, Qt::Key_Right, Qt::ControlModifier);
    expectOneBox();
  });
}

TEST_P(ThrowingHandlers, OfTheKeysForTheEndsOfTheList) {
  show([&](QDialog& window) {
    view(window).setFocus();
    for (const int key : {Qt::Key_End, Qt::Key_Home}) {
      rows_->OnMove = fail();
      press(window, key);
      rows_->OnMove = nullptr;
      expectOneBox();
      EXPECT_EQ(view(window).currentIndex().row(), 0);
    }
  });
}

TEST_P(ThrowingHandlers, OfAnotherFolder) {
  folders_.OnChange = fail();
  show([&](QDialog& window) {
    tree(window).setFocus();
    press(window, Qt::Key_Down);
    expectOneBox();
    EXPECT_EQ(toQt(folders_.Path()), home_.filePath(QStringLiteral("Compras")));
  });
}

TEST_P(ThrowingHandlers, OfADeletedFolder) {
  show([&](QDialog& window) {
    QDir(home_.path()).rmdir(QStringLiteral("Compras"));
    tree(window).setFocus();
    press(window, Qt::Key_Down);
    settleEvents();
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    EXPECT_EQ(toQt(folders_.Path()), home_.path());
  });
}

INSTANTIATE_TEST_SUITE_P(
    Dialogs, ThrowingHandlers,
    testing::Values(Thrower{"another exception", [] { throw std::runtime_error("nada feito"); }},
                    Thrower{"a run-time error", [] { throw HostError(errors::InvalidArgument); }}));

}  // namespace
}  // namespace tessaria::qt::tests
