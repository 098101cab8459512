// The lookup that the wizard has made, in a form that runs on the server.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/memory/dialogs/desktop.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/property_bag.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/wizard/server_connection.h"

namespace tessaria::test {

/// A form with the designed field, loaded from what it stores, and a plain field desCliente, whose
/// text its conditions use.
class RunningLookup {
 public:
  using Cells = std::vector<String>;

  RunningLookup(const memory::TsText& designed, memory::Desktop& desktop) : desktop_(desktop) {
    memory::PropertyBag stored;
    designed->UserControl_WriteProperties(stored);
    key_ = form_->Add<memory::TsText>(designed.Name(), stored);
    const auto server = std::make_shared<ServerConnection>();
    server->ConnectionString(u"");
    server->Open();
    form_->DbForm(Variant(host::ConnectionPtr(server)));
    form_->Show();
  }
  RunningLookup(const RunningLookup&) = delete;
  RunningLookup& operator=(const RunningLookup&) = delete;
  ~RunningLookup() {
    form_->Close();
    State().dbConexao = nullptr;
  }

  /// Opens the list, with that text in desCliente, and takes the row that it opens on. What the
  /// list showed is in `headings` and `first`; they are empty when no list came.
  void Run(const String& condition = {}) {
    (*condition_)->Value(condition);
    form_->Focus(key_->Name());
    desktop_.WillShowOthers([this](memory::Dialog& list) {
      Read(list.Find<memory::DataGrid>(u"grdBrowse"));
      list.Click(u"btnConfirmar");
      if (list.IsShown()) list.CloseWindow();
    });
    form_->Press(memory::Key::PageDown);
    desktop_.WillShowOthers(nullptr);
  }
  /// "" when none was taken.
  String Key() const {
    const Variant value = (*key_)->Value();
    return value.IsNull() ? String() : CStr(value);
  }
  /// The value of a field that the program reads; from 1.
  Variant ReturnField(Long position) const {
    return (*key_)->Browse()->Outros().Item(position)->Valor();
  }

  Cells headings, first;

 private:
  void Read(memory::DataGrid& grid) {
    const auto rows = grid.DataSource();
    if (!rows || rows->Eof()) return;
    for (Long i = 0; i < grid.ColumnCount(); ++i) {
      if (!grid.ShowsColumn(i)) continue;
      headings.push_back(grid.Column(i).Caption());
      first.push_back(grid.CellText(i));
    }
  }

  memory::Desktop& desktop_;
  std::shared_ptr<memory::Form> form_ = memory::Form::Create(u"frmVendas");
  std::shared_ptr<memory::TsText> condition_ = form_->Add<memory::TsText>(u"desCliente");
  std::shared_ptr<memory::TsText> key_;
};

}  // namespace tessaria::test
