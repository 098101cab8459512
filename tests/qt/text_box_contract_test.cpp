// The text box of the Qt host under the contract of text boxes, in a real window.
#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QVBoxLayout>

#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/text_box.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/text.h"
#include "tests/ports/case_count.h"
#include "tests/ports/text_box_contract.h"
#include "tests/ports/text_box_edit_contract.h"
#include "tests/ports/text_box_typing_contract.h"
#include "tests/qt/operator.h"

namespace tessaria::contract {
namespace {

const bool counted = CountCases("qt");

class QtTextBox final : public TextBoxDriver {
 public:
  QtTextBox() {
    qt::install();
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(other_ = new QPushButton);
    surface_ = new QWidget;
    surface_->setMinimumSize(200, 60);
    layout->addWidget(surface_);
    edit_ = new qt::LineEdit(surface_);
    box_ = std::make_unique<qt::TextBox>(*edit_);
    qt::tests::showActive(window_);
    other_->setFocus();
    qt::tests::settleEvents();
  }

  host::TextBox& Box() override { return *box_; }
  void Focus() override {
    edit_->setFocus(Qt::TabFocusReason);
    qt::tests::settleEvents();
  }
  void Leave() override {
    other_->setFocus(Qt::TabFocusReason);
    qt::tests::settleEvents();
  }
  void Type(const String& text) override {
    for (const QString& character : qt::charactersOf(qt::toQt(text))) {
      // Keys with an accent arrive as text of an input method, except for a direct key.
      if (character == QStringLiteral("á") || character.size() > 1)
        qt::tests::commit(window_, character);
      else
        qt::tests::type(window_, character);
    }
  }
  void Press(EditKey key, With with) override {
    qt::tests::press(window_, keyOf(key),
                     with == With::Shift     ? Qt::ShiftModifier
                     : with == With::Control ? Qt::ControlModifier
                                             : Qt::NoModifier);
  }
  void Insert(const String& text) override { qt::tests::pasteByMenu(*edit_, qt::toQt(text)); }

 private:
  static int keyOf(EditKey key) {
    switch (key) {
      case EditKey::Backspace:
        return Qt::Key_Backspace;
      case EditKey::Enter:
        return Qt::Key_Return;
      case EditKey::End:
        return Qt::Key_End;
      case EditKey::Home:
        return Qt::Key_Home;
      case EditKey::Left:
        return Qt::Key_Left;
      case EditKey::Right:
        return Qt::Key_Right;
      case EditKey::Delete:
        return Qt::Key_Delete;
      case EditKey::A:
        return Qt::Key_A;
    }
    return 0;
  }

  QWidget window_;
  QPushButton* other_ = nullptr;
  QWidget* surface_ = nullptr;
  qt::LineEdit* edit_ = nullptr;
  std::unique_ptr<qt::TextBox> box_;
};

INSTANTIATE_TEST_SUITE_P(Qt, TextBoxContract,
                         testing::Values(TextBoxHost{
                             "qt", [] { return std::make_unique<QtTextBox>(); }}));

}  // namespace
}  // namespace tessaria::contract
