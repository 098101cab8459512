// Labels, buttons, displays, fields and calendars of dialogs.
#pragma once

#include <QCalendarWidget>
#include <QLabel>
#include <QLineEdit>

#include "hosts/qt/widgets/coloured_button.h"
#include "hosts/qt/widgets/dialog_item.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {

class LabelItem final : public DialogItemOf<host::DialogLabel> {
 public:
  LabelItem(QLabel& label, const DialogGate& gate, const QString& caption);

  String Caption() const override;
  void Caption(const String& text) override;

 private:
  QLabel& label_;
};

class ButtonItem final : public DialogItemOf<host::DialogButton> {
 public:
  ButtonItem(ColouredButton& button, const DialogGate& gate);

  String Caption() const override;
  Colour TextColour() const override;
  void TextColour(Colour colour) override { button_.setTextColour(colour); }
  Colour BackColor() const override { return button_.backColour(); }
  void BackColor(Colour colour) override { button_.setBackColour(colour); }

 private:
  ColouredButton& button_;
};

class DisplayItem final : public DialogItemOf<host::DialogDisplay> {
 public:
  DisplayItem(QLineEdit& box, const DialogGate& gate);

  String Text() const override;
  void Text(const String& text) override;

 private:
  QLineEdit& box_;
};

/// Has the assigned width, but never clips the font.
class FieldItem final : public DialogItemOf<host::DialogField> {
 public:
  FieldItem(TsText& surface, const DialogGate& gate, const QString& accessibleName);

  host::TsTextWidget& Control() override { return *control_; }
  using DialogItemOf::Width;
  void Width(Long twips) override;
  /// The field reports them itself.
  bool keepsKeysOf(const QWidget&) const override { return true; }

 private:
  TsText& surface_;
  std::shared_ptr<host::TsTextWidget> control_;
};

/// A month in Portuguese, with weeks that begin on Sunday. Changing the page moves the selection to
/// the new month. Enter in the year editor accepts the year and Escape discards it; both return to
/// the days.
class CalendarItem final : public DialogItemOf<host::Calendar> {
 public:
  CalendarItem(QCalendarWidget& calendar, const DialogGate& gate);

  Date Value() const override;
  void Value(Date day) override;
  bool keepsKeysOf(const QWidget& focus) const override { return &focus == year_; }

 private:
  void turnTo(int year, int month);
  void nameParts();
  void describeParts();

  QCalendarWidget& calendar_;
  QWidget* year_;
};

}  // namespace tessaria::qt
