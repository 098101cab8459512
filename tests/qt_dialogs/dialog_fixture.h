// A form with a field, for tests of the windows that open over it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QVBoxLayout>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"
#include "tests/qt/printers.h"
#include "tests/qt_dialogs/modal_driver.h"
#include "tests/support/printers.h"

namespace tessaria::qt::tests {

class DialogFixture : public testing::Test {
 protected:
  DialogFixture() {
    install();
    owner_->setObjectName(QStringLiteral("frmDono"));
    auto* layout = new QVBoxLayout(owner_.get());
    field_ = new TsText;
    field_->setObjectName(QStringLiteral("txtCampo"));
    field_->setUsaChecaRelacao(false);
    layout->addWidget(field_);
    showActive(*owner_);
    field_->setFocus();
    settleEvents();
  }

  BoxKeeper boxes_;
  ModalDriver driver_;
  std::unique_ptr<QWidget> owner_ = std::make_unique<QWidget>();
  TsText* field_ = nullptr;
  memory::TextBox box_;
};

}  // namespace tessaria::qt::tests
