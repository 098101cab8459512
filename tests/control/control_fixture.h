// What the tests of the control share: a form without a screen, a connection, and controls that are
// added to the form.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

#include "control/storage/properties.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/property_bag.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/support/printers.h"

namespace tessaria::memory {

inline void PrintTo(const MessageBoxRecord& box, std::ostream* out) {
  *out << "[" << ToUtf8(box.Title) << "] " << ToUtf8(box.Text) << " (style " << box.Style
       << ", owner " << box.Owner << ")";
}

}  // namespace tessaria::memory

namespace tessaria::test {

/// Same kind and same value.
MATCHER_P(IsValue, expected, "") { return Same(arg, Variant(expected)); }
MATCHER(IsEmptyVariant, "") { return arg.IsEmpty(); }
MATCHER(IsNullVariant, "") { return arg.IsNull(); }

/// A box with the stop icon, like nearly all.
inline memory::MessageBoxRecord StopBox(Long owner, const String& text,
                                        const String& title = u"Alerta!") {
  return {owner, text, host::box::Stop, title};
}

/// The library's error box.
inline memory::MessageBoxRecord ErrorBox(const HostError& error, const String& procedure,
                                         const String& module = u"tsText") {
  return {0, error.Description(), host::box::Stop,
          u"Erro: " + CStr(Variant(error.Number())) + u" - Função: " + module + u"." + procedure};
}

/// The error of an unknown name in a parameter, or in a property of a field.
inline HostError MissingControl(const String& name, const String& property = {},
                                const String& field = {}) {
  const String where = property.empty() ? String() : u", em " + property + u" de '" + field + u"'";
  return {errors::ControlNotFound, u"Controle não encontrado: '" + name + u"'" + where};
}

inline const Variant null = Variant::Null();

class ControlTest : public testing::Test {
 protected:
  explicit ControlTest(memory::Form::Mode mode = memory::Form::Mode::Run)
      : form(memory::Form::Create(u"frmCadastro", mode)) {
    State().vntValorIrmao = Variant::Null();
    connection->ConnectionString(u"DSN=teste");
    form->DbForm(connection);
  }
  ~ControlTest() override {
    form->Close();
    State().vntValorIrmao = Variant::Null();
    State().dbConexao = nullptr;
  }
  ControlTest(const ControlTest&) = delete;
  ControlTest& operator=(const ControlTest&) = delete;

  using FieldPtr = std::shared_ptr<memory::TsText>;
  using Events = std::vector<memory::ControlEvent>;
  using Kind = memory::ControlEvent::Kind;

  FieldPtr AddField(const String& name) { return form->Add<memory::TsText>(name); }
  /// A control that was stored with these settings; all others are at their defaults.
  FieldPtr AddStored(const String& name, const std::vector<std::pair<String, Variant>>& settings) {
    memory::PropertyBag bag;
    for (const auto& [key, value] : settings) bag.WriteProperty(key, value, Variant::Missing());
    return form->Add<memory::TsText>(name, bag);
  }
  String ActiveName() const {
    const auto active = form->ActiveControl();
    return active ? active->Name() : String();
  }
  /// Data of one table, shown by a data control named "dtcDados".
  std::shared_ptr<memory::DataControl> AddData(std::vector<memory::Column> columns,
                                               std::vector<memory::Row> rows) {
    connection->AddTable(u"dados", std::move(columns), std::move(rows));
    auto data = form->Add<memory::DataControl>(u"dtcDados");
    data->Connect(connection, u"dados");
    return data;
  }
  /// Names the data control's field on a control.
  static void Bind(const FieldPtr& field, const String& column) {
    (*field)->DataSource(u"dtcDados");
    (*field)->DataField(column);
  }

  memory::Application app;
  std::shared_ptr<memory::Connection> connection = memory::Connection::CreateOpen();
  std::shared_ptr<memory::Form> form;
};

/// The same on a form in the designer.
class DesignTest : public ControlTest {
 protected:
  DesignTest() : ControlTest(memory::Form::Mode::Design) {}
};

}  // namespace tessaria::test
