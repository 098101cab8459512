// A memory form of random fields, on one table with every column type.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/dialogs/desktop.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/attack/run.h"

namespace tessaria::attack {

/// A mask: usually one that programs use, otherwise a random one.
String RandomMask(Random& random);
/// A value as a program assigns it: of every kind and in many spellings.
Variant RandomValue(Random& random);
/// A character as an operator types it.
char16_t RandomCharacter(Random& random);

/// When a field opens a window of the library, a script closes it after a few keys.
class RandomForm {
 public:
  explicit RandomForm(Random& random);
  ~RandomForm();
  RandomForm(const RandomForm&) = delete;
  RandomForm& operator=(const RandomForm&) = delete;

  static constexpr const char16_t* kDataControl = u"dtcDados";
  /// The key of every row that a lookup finds.
  static constexpr const char16_t* kFoundKey = u"1";

  memory::Application& Program() { return program_; }
  memory::Desktop& Windows() { return *desktop_; }
  /// Windows of the library that were opened so far.
  long long WindowsShown() const { return windowsShown_; }
  memory::Form& Form() { return *form_; }
  const std::shared_ptr<memory::Form>& Shared() { return form_; }
  std::vector<std::shared_ptr<memory::TsText>>& Fields() { return fields_; }
  memory::TsText& AnyField() { return *random_.OneOf(fields_); }
  /// The field that has the focus; null when none has it.
  memory::TsText* Focused();
  host::Recordset& Rows() { return *data_->RecordSet(); }
  const memory::Table& Stored() const { return *table_; }

  /// Sets the properties that a program changes at run time to new random values.
  void Reconfigure(memory::TsText& field);
  /// Loads another row into all the fields, as a data control does. A pending edit is dropped.
  void LoadRow(Long row);
  /// Drops what the windows and boxes have recorded, which would pile up in long runs.
  void ForgetThePast();
  /// What the windows did unexpectedly.
  const std::vector<String>& WindowFaults() const { return windowFaults_; }

 private:
  void AddTables();
  void AddField(std::size_t number);
  void SetLookup(tsText& field);

  Random& random_;
  memory::Application program_;
  std::vector<String> windowFaults_;
  long long windowsShown_ = 0;
  std::unique_ptr<memory::Desktop> desktop_;
  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::TablePtr table_;
  std::shared_ptr<memory::Form> form_;
  std::shared_ptr<memory::DataControl> data_;
  std::vector<std::shared_ptr<memory::TsText>> fields_;
};

}  // namespace tessaria::attack
