// One field that is entered and left.
#pragma once

#include "tests/control/control_fixture.h"

namespace tessaria::test {

class FocusTest : public ControlTest {
 protected:
  FocusTest() {
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
    field = AddField(u"txtCampo");
    (*field)->UsaChecaRelacao(false);
  }

  tsText& Control() { return **field; }
  memory::TextBox& Box() { return field->txtEdit(); }
  void Show() {
    form->Show();
    field->ForgetEvents();
  }
  void Enter() { form->Focus(u"txtCampo"); }
  void Leave() { form->Focus(u"chkAtivo"); }
  /// One key-up that changes nothing.
  void TouchAKey() {
    Integer code = 65, shift = 0;
    Box().OnKeyUp(code, shift);
  }
  Variant LastValue() {
    Control().DisparaEventos(u"BrowseReturn");
    return field->Events(Kind::BrowseReturn).back().LastValue;
  }
  std::vector<memory::ControlEvent> Returns() { return field->Events(Kind::BrowseReturn); }
  void ExpectSelection(Long start, Long length) {
    EXPECT_EQ(Box().SelStart(), start);
    EXPECT_EQ(Box().SelLength(), length);
  }

  FieldPtr field;
};

}  // namespace tessaria::test
