// The property page of a field, for the frame of a designer of forms.
#pragma once

#include <QList>
#include <functional>
#include <memory>

#include "tessaria/export.h"

class QWidget;

namespace tessaria::qt {

class TsText;

/// One page for each time that it is opened. It edits the last of its fields, which must live as
/// long as its members are called; its lookup and its searches at once, all else with `apply`.
///
/// Errors of what an operator does on the page are shown in boxes; those of the members are thrown.
class TESSARIA_QT_API PropertyPage {
 public:
  /// `fields`: the selected ones, of one form under design, the one that was clicked last at the
  /// end. `changed` is called with true when the page holds something to be applied, and with false
  /// after `read`. It must not throw.
  PropertyPage(const QList<TsText*>& fields, std::function<void(bool)> changed);
  PropertyPage(const PropertyPage&) = delete;
  PropertyPage& operator=(const PropertyPage&) = delete;
  /// The fields may be gone.
  ~PropertyPage();

  /// What the frame shows. It belongs to the page, and may be put into a layout.
  QWidget& widget();
  /// Takes over what the field holds; comes first, and after its settings were assigned.
  void read();
  /// Writes all that the page holds to the field.
  void apply();

 private:
  class Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tessaria::qt
