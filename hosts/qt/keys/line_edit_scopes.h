// Stretches of an edit's work: what is told at their end, and what one undo takes back.
#pragma once

#include <QPointer>

#include "hosts/qt/keys/line_edit.h"

namespace tessaria::qt {

/// Who changes the text.
enum class LineEdit::By { Handlers, Qt };

class LineEdit::Work {
 public:
  Work(LineEdit* edit, By by) : edit_(edit), byHandlers_(by == By::Handlers) {
    ++edit->working_;
    if (byHandlers_) ++edit->typing_;
  }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    if (!edit_) return;
    --edit_->working_;
    if (byHandlers_) {
      --edit_->typing_;
      edit_->trusted_ = true;
    }
    edit_->flush();
  }

 private:
  QPointer<LineEdit> edit_;
  const bool byHandlers_;
};

/// The outermost one counts.
class LineEdit::Step {
 public:
  explicit Step(LineEdit* edit) : edit_(edit) {
    if (edit->steps_++ == 0 && edit->keepsHistory()) before_ = edit->state();
  }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;
  ~Step() {
    if (!edit_ || --edit_->steps_ > 0) return;
    const bool inHistory = std::exchange(edit_->stepsInHistory_, false);
    if (before_ && !inHistory && !edit_->state().hasTextOf(*before_))
      edit_->history_.changed(*before_);
  }

 private:
  QPointer<LineEdit> edit_;
  std::optional<EditState> before_;
};

}  // namespace tessaria::qt
