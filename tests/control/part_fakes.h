// The surroundings of a control's parts, as plain state: with these each part is tested alone.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "control/field_box.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/thread_state.h"
#include "tests/support/printers.h"

namespace tessaria::test {

/// A surface that is not on a form.
struct FakeSite final : host::ControlSite {
  bool UserMode() const override { return userMode; }
  String DisplayName() const override { return u"txtCampo"; }
  host::Font AmbientFont() const override { return {}; }
  host::FormPtr Parent() const override { throw HostError(errors::ObjectNotSet); }
  host::WidgetPtr Extender() const override { return nullptr; }
  bool TabStop() const override { return tabStop; }
  void TabStop(bool stop) override { tabStop = stop; }
  Long hWnd() const override { return 7; }
  Long Width() const override { return width; }
  Long Height() const override { return height; }
  void Height(Long twips) override { height = twips; }
  void BackColor(Colour colour) override { backColor = colour; }
  String ActiveControlName() const override { throw HostError(errors::ObjectNotSet); }
  void PropertyChanged(const String& name) override { changed.push_back(name); }

  bool userMode = true;
  bool tabStop = false;
  Long width = 2000, height = 315;
  Colour backColor = 0;
  std::vector<String> changed;
};

/// A widget of a form, with its name and its type.
template <class Port>
struct FakeWidgetOf : Port {
  explicit FakeWidgetOf(String name_, String type_)
      : name(std::move(name_)), type(std::move(type_)) {}
  String Name() const override { return name; }
  String TypeName() const override { return type; }
  Long Left() const override { return 0; }
  Long Top() const override { return 0; }
  Long Height() const override { return 0; }
  host::WidgetPtr Container() const override { return nullptr; }
  Variant Get(const String&) const override { throw HostError(errors::NoSuchMember); }
  void Let(const String&, const Variant&) override { throw HostError(errors::NoSuchMember); }

  String name, type;
};
using FakeWidget = FakeWidgetOf<host::Widget>;

struct FakeLabel final : FakeWidgetOf<host::Label> {
  FakeLabel() : FakeWidgetOf(u"lblCampo", u"Label") {}
  String Caption() const override { return u"Campo:"; }
  Colour ForeColor() const override { return colour; }
  void ForeColor(Colour v) override { colour = v; }
  bool FontBold() const override { return bold; }
  void FontBold(bool v) override { bold = v; }

  Colour colour = 0;
  bool bold = false;
};

/// A control that records its calls.
struct FakeControl final : _tsText {
  Variant Value() const override { return value; }
  void Value(const Variant& v) override { Note(u"Value", v); }
  bool TakeValue(const Variant& v) override { return Note(u"TakeValue", v), true; }
  void ShowValue(const Variant& v) override { Note(u"ShowValue", v); }
  Long TipoDado() const override { return tipoDado; }
  String TxtIrmao() const override { return txtIrmao; }
  bool Enabled() const override { return enabled; }
  void Enabled(bool v) override {
    enabled = v;
    calls.push_back(u"Enabled");
  }
  bool LastValidaStatus() const override { return isValid; }
  Variant AtualizaIrmao(bool keysOnly, bool) override {
    calls.push_back(keysOnly ? u"AtualizaIrmao keys" : u"AtualizaIrmao");
    return {};
  }
  void ShowSibling(bool keysOnly) override {
    calls.push_back(keysOnly ? u"ShowSibling keys" : u"ShowSibling");
  }
  Variant DisparaEventos(const String& name) override {
    calls.push_back(name);
    return {};
  }
  void Note(const String& call, const Variant& v) {
    value = v;
    calls.push_back(call);
  }

  Variant value;
  Long tipoDado = 1;
  String txtIrmao = u"txtCampo";
  bool enabled = true, isValid = true;
  std::vector<String> calls;
};

/// Its widget, as the form holds it.
struct FakeControlWidget final : FakeWidgetOf<host::TsTextWidget> {
  FakeControlWidget() : FakeWidgetOf(u"txtIrmao", u"tsText") {}
  _tsText& Control() const override { return control; }

  mutable FakeControl control;
};

/// What every part works on: a surface, a box, and the state of the control.
class PartTest : public testing::Test {
 protected:
  PartTest() {
    State().vntValorIrmao = Variant::Null();
    members.ItensMascara = u"_";
  }
  ~PartTest() override {
    State().vntValorIrmao = Variant::Null();
    State().dbConexao = nullptr;
  }
  PartTest(const PartTest&) = delete;
  PartTest& operator=(const PartTest&) = delete;

  void Mask(const String& mask, const String& items) {
    members.Mascara = mask;
    members.ItensMascara = items;
  }
  /// A database whose tables are opened for every lookup.
  memory::Connection& Database() {
    auto connection = memory::Connection::CreateOpen();
    connection->ConnectionString(u"DSN=teste");
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    State().dbConexao = connection;
    return *connection;
  }
  /// The texts of the boxes since the last call.
  std::vector<String> Told() {
    std::vector<String> texts;
    for (const auto& shown : app.TakeBoxes()) texts.push_back(shown.Text);
    return texts;
  }

  memory::Application app;
  FakeSite site;
  memory::TextBox txtEdit;
  Members members;
  FieldBox box{site, txtEdit, members, members};
};

}  // namespace tessaria::test
