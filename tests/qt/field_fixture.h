// A window with two fields, a label and a button.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "tests/qt/operator.h"
#include "tests/qt/printers.h"

namespace tessaria::qt::tests {

class FieldFixture : public testing::Test {
 protected:
  FieldFixture() {
    window_->setObjectName(QStringLiteral("frmTeste"));
    auto* layout = new QVBoxLayout(window_.get());
    const auto add = [&](auto* widget, const char* name) {
      widget->setObjectName(QLatin1String(name));
      layout->addWidget(widget);
      return widget;
    };
    label_ = add(new QLabel(QStringLiteral("&Primeiro")), "lblPrimeiro");
    first_ = add(new TsText, "txtPrimeiro");
    second_ = add(new TsText, "txtSegundo");
    button_ = add(new QPushButton(QStringLiteral("&Gravar")), "btnGravar");
    for (TsText* field : {first_, second_}) field->setUsaChecaRelacao(false);
  }

  /// Shows the window with the focus in the first field.
  void show() {
    showActive(*window_);
    first_->setFocus();
    settleEvents();
  }
  QLineEdit& box() { return *editOf(*first_); }
  /// Moves the focus to the second field.
  void leave() {
    second_->setFocus(Qt::TabFocusReason);
    settleEvents();
  }
  /// Moves the focus into the first field again.
  void enterAgain() {
    leave();
    first_->setFocus();
    settleEvents();
  }
  TsText* focusedField() {
    QWidget* focus = window_->focusWidget();
    return focus ? qobject_cast<TsText*>(focus->parentWidget()) : nullptr;
  }

  BoxKeeper boxes_;
  std::unique_ptr<QWidget> window_ = std::make_unique<QWidget>();
  QLabel* label_ = nullptr;
  TsText* first_ = nullptr;
  TsText* second_ = nullptr;
  QPushButton* button_ = nullptr;
};

}  // namespace tessaria::qt::tests
