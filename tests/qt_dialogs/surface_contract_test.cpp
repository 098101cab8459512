// Runs the contract of surfaces on the Qt host: in a plain frame, in a dialog of the program, and
// in one of the library.
#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

#include "hosts/qt/dialogs/surface.h"
#include "tests/ports/case_count.h"
#include "tests/ports/dialog_contract.h"
#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/qt_dialogs/surface_hands.h"

namespace tessaria::contract {
namespace {

const bool counted = CountCases("qt");

/// A size at which all widgets of the contract can be seen.
constexpr QSize kRoomy(700, 1900);

class QtDriver : public SurfaceDriver {
 public:
  Operator& Hands() override { return *hands_; }
  bool IsShown() override { return shown_ && shown_->isVisible(); }
  void MakeDefault(StringView button) override {
    window_->findChild<QPushButton*>(qt::toQt(button))->setDefault(true);
  }
  std::vector<String> TakeBoxes() override {
    std::vector<String> texts;
    for (const QString& text : boxes_.takeTexts()) texts.push_back(qt::fromQt(text));
    return texts;
  }

 protected:
  QtDriver() { qt::install(); }
  /// `shown` is what goes away with the surface.
  void work(QWidget& window, QWidget& shown) {
    window_ = &window;
    shown_ = &shown;
    hands_ = std::make_unique<qt::tests::SurfaceHands>(window);
  }

  QPointer<QWidget> window_;

 private:
  qt::tests::BoxKeeper boxes_;
  QPointer<QWidget> shown_;
  std::unique_ptr<qt::tests::SurfaceHands> hands_;
};

/// Over a window of the program: a widget of it, or a dialog.
template <class Frame>
class QtFrame final : public QtDriver {
 public:
  explicit QtFrame(const host::DialogDescription& description) {
    const qt::FramedSurface made = qt::makeSurface(description);
    surface_ = made.surface;
    frame_.setObjectName(QStringLiteral("frmMoldura"));
    (new QVBoxLayout(&frame_))->addWidget(made.widget);
    frame_.resize(kRoomy);
    work(frame_, *made.widget);
  }

  host::Surface& Surface() override { return *surface_; }
  host::Dialog* Dialog() override { return nullptr; }
  void Work(const std::function<void()>& script) override {
    qt::tests::showActive(frame_);
    script();
    frame_.hide();
  }
  void Destroy() override { surface_ = nullptr; }

 private:
  Frame frame_;
  host::SurfacePtr surface_;
};

class QtDialog final : public QtDriver {
 public:
  explicit QtDialog(const host::DialogDescription& description)
      : dialog_(TheDesktop().MakeDialog(description)) {
    QWidget* window = qt::widgetOf(dialog_->hWnd());
    window->resize(kRoomy);
    work(*window, *window);
  }

  host::Surface& Surface() override { return *dialog_; }
  host::Dialog* Dialog() override { return dialog_.get(); }
  void Work(const std::function<void()>& script) override {
    modal_.willShow(window_->objectName(), [&](QDialog& window) {
      script();
      window.hide();
    });
    dialog_->ShowModal();
  }
  void Destroy() override { dialog_ = nullptr; }

 private:
  qt::tests::ModalDriver modal_;
  host::DialogPtr dialog_;
};

template <class Driver>
SurfaceHost hostOf(const char* name) {
  return {name, [](const host::DialogDescription& description) {
            return std::make_unique<Driver>(description);
          }};
}

const SurfaceHost kFrame = hostOf<QtFrame<QWidget>>("qt frame");
const SurfaceHost kProgramsDialog = hostOf<QtFrame<QDialog>>("qt dialog of the program");
const SurfaceHost kDialog = hostOf<QtDialog>("qt dialog");
const auto kAll = testing::Values(kFrame, kProgramsDialog, kDialog);

INSTANTIATE_TEST_SUITE_P(Qt, SurfaceContract, kAll);
INSTANTIATE_TEST_SUITE_P(Qt, SurfaceKindContract, kAll);
INSTANTIATE_TEST_SUITE_P(Qt, SurfaceListContract, kAll);
INSTANTIATE_TEST_SUITE_P(Qt, DialogContract, testing::Values(kDialog));

}  // namespace
}  // namespace tessaria::contract
