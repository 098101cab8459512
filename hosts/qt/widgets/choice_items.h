// Combo boxes, check boxes and options of surfaces.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

class ComboItem final : public DialogItemOf<host::DialogCombo> {
 public:
  enum class Takes { AnyText, RowsOnly };
  ComboItem(QComboBox& box, const DialogGate& gate, Takes takes);

  Long ListCount() const override { return box_.count(); }
  String List(Long row) const override;
  void AddItem(const String& text) override;
  void Clear() override;
  Long ListIndex() const override;
  void ListIndex(Long row) override;
  String Text() const override;
  void Text(const String& text) override;

 private:
  void makeEditable();
  bool hasRow(Long row) const { return row >= 0 && row < box_.count(); }

  QComboBox& box_;
  const Takes takes_;
};

class CheckItem final : public DialogItemOf<host::DialogCheckBox> {
 public:
  CheckItem(QCheckBox& box, const DialogGate& gate);

  String Caption() const override;
  Integer Value() const override { return box_.isChecked() ? 1 : 0; }
  void Value(Integer value) override;

 private:
  QCheckBox& box_;
};

class OptionItem final : public DialogItemOf<host::DialogOption> {
 public:
  /// The container's options exclude each other, on all of its pages.
  OptionItem(QRadioButton& button, const DialogGate& gate, QWidget& container);

  String Caption() const override;
  bool Value() const override { return button_.isChecked(); }
  void Value(bool value) override;

 private:
  QRadioButton& button_;
  bool assigning_ = false;
};

}  // namespace tessaria::qt
