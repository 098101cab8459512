// Creates, uses and destroys thousands of forms, and closes them at the worst moments: none harms
// the program, and the memory does not grow.
#include <gtest/gtest.h>

#include "tessaria/text.h"
#include "tests/attack/random_form.h"

namespace tessaria::attack {
namespace {

constexpr long long kBytesAForm = 64;
constexpr long long kBytesAtFirst = 512 * 1024;

/// Where a form is closed.
enum class Moment { Afterwards, InTheBox, InTheDialog, InAHandler, InAnEvent };
constexpr Moment kMoments[] = {Moment::Afterwards, Moment::InTheBox, Moment::InTheDialog,
                               Moment::InAHandler, Moment::InAnEvent};
constexpr const char* kMomentNames[] = {"after its work", "under a box", "under a dialog",
                                        "in a handler", "in pumped events"};

/// A form that is used a little and closes itself at the chosen moment.
class Life {
 public:
  Life(Random& random, Moment moment) : random_(random), form_(random), moment_(moment) {
    switch (moment) {
      case Moment::Afterwards:
        break;
      case Moment::InTheBox:
        form_.Program().OnMessageBox = [this](const memory::MessageBoxRecord&) { Close(); };
        break;
      case Moment::InTheDialog:
        form_.Windows().WillShowOthers([this](memory::Dialog& window) {
          Close();
          if (window.IsShown()) window.CloseWindow();
        });
        break;
      case Moment::InAHandler:
        SetHandlers();
        break;
      case Moment::InAnEvent:
        form_.Program().OnDoEvents = [this] { Close(); };
        break;
    }
  }

  void Run() {
    form_.Form().Show();
    for (int i = 0; i < 60 && !form_.Form().IsClosed(); ++i) Work();
    CheckErrors();
    Count(std::string("forms closed ") +
          (closedItself_ ? kMomentNames[static_cast<int>(moment_)] : "at their end"));
  }

 private:
  // One event of one field, chosen at random for the form, closes it.
  void SetHandlers() {
    memory::TsText& field = form_.AnyField();
    const auto close = [this](auto&&...) { Close(); };
    switch (random_.Below(6)) {
      case 0:
        return static_cast<void>(field.OnShow = close);
      case 1:
        return static_cast<void>(field.OnChange = close);
      case 2:
        return static_cast<void>(field.OnKeyDown = close);
      case 3:
        return static_cast<void>(field.OnKeyPress = close);
      case 4:
        return static_cast<void>(field.OnKeyUp = close);
      default:
        return static_cast<void>(field.OnBrowseReturn = close);
    }
  }
  void Close() {
    closedItself_ = true;
    form_.Shared()->Close();
  }

  void Work() {
    memory::Form& form = form_.Form();
    switch (random_.Below(8)) {
      case 0:
        return form.Press(memory::Key::Tab);
      case 1:
        return form.Focus(form_.AnyField().Name());
      case 2:
        return form.Click(u"btnGravar");
      case 3:
        return form.Press(memory::Key::PageDown);
      case 4:
        return form.RunEvent([&] { form_.AnyField().ClickButton(); });
      case 5:
        return form.RunEvent([&] { (*form_.AnyField()).Value(RandomValue(random_)); });
      default:
        return form.Type(String(1, RandomCharacter(random_)));
    }
  }

  void CheckErrors() {
    for (const HostError& error : form_.Form().UnhandledErrors())
      if (error.Number() == 0)
        Fault("an exception that is no run-time error",
              std::string(kMomentNames[static_cast<int>(moment_)]) + ": " + error.what());
  }

  Random& random_;
  RandomForm form_;
  Moment moment_;
  bool closedItself_ = false;
};

TEST(Forms, MayBeClosedAtAnyMomentAndLeaveNothingBehind) {
  const long long forms = Amount(2000, 10'000);
  long long before = 0;
  for (long long i = 0; i < forms; ++i) {
    Random random("form " + std::to_string(i));
    Life(random, kMoments[static_cast<std::size_t>(i) % std::size(kMoments)]).Run();
    if (i == forms / 4) before = HeapBytes();
  }
  const long long growth = HeapBytes() - before;
  Count("bytes that the heap grew", growth);
  EXPECT_LT(growth, kBytesAtFirst + kBytesAForm * forms);
}

}  // namespace
}  // namespace tessaria::attack
