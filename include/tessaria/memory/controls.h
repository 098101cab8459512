// The plain controls of a memory form.
#pragma once

#include <functional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/widgets.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// Its caption is kept without the mnemonic sign: "&&" is one "&".
class TESSARIA_MEMORY_API Label final : public PartWith<host::Label> {
 public:
  explicit Label(String name, const String& caption = u"");

  String Caption() const override { return Live(), caption_; }
  void Caption(const String& text);
  Colour ForeColor() const override { return Live(), foreColor_; }
  void ForeColor(Colour colour) override { Live(), foreColor_ = colour; }
  bool FontBold() const override { return Live(), fontBold_; }
  void FontBold(bool bold) override { Live(), fontBold_ = bold; }

 private:
  String caption_;
  Colour foreColor_;
  bool fontBold_ = false;
};

/// A button of the form. It takes the focus when it is pressed.
class TESSARIA_MEMORY_API Button final : public PartWith<host::Widget> {
 public:
  explicit Button(String name, String caption = u"");

  /// Enter in any field presses it.
  bool Default = false;
  /// Escape in any field presses it.
  bool Cancel = false;
  /// The operator has pressed it.
  std::function<void()> OnClick;

  bool TakesFocus() const override { return CanBeUsed(); }
  void Hold(const Stroke& stroke) override;
  void Click() override;
};

/// A container or any other control that the library only looks at: "Frame", "CheckBox", ...
class TESSARIA_MEMORY_API Generic final : public PartWith<host::Widget> {
 public:
  enum class Focus { Refused, Taken };
  Generic(String name, String typeName, Focus focus = Focus::Refused);

  bool TakesFocus() const override { return focus_ == Focus::Taken && CanBeUsed(); }

 private:
  Focus focus_;
};

/// Pages with tabs, all of them visible at first.
class TESSARIA_MEMORY_API TabStrip final : public PartWith<host::TabStrip> {
 public:
  TabStrip(String name, Integer tabs);

  Integer Tab() const override { return Live(), tab_; }
  /// Error 380 for a number that is not a tab.
  void Tab(Integer number) override;
  bool TabVisible(Integer number) const override;
  /// Error 380 for a number that is not a tab.
  void TabVisible(Integer number, bool visible);

 private:
  std::size_t Index(Integer number) const;

  Integer tab_ = 0;
  std::vector<bool> visible_;
};

/// A data control over a connection that the test supplies. It opens its rows by itself when the
/// form loads, if it has a connection and a record source.
class TESSARIA_MEMORY_API DataControl final : public PartWith<host::DataControl> {
 public:
  explicit DataControl(String name, String typeName = u"Adodc");

  String ConnectionString() const override { return Live(), connectionString_; }
  void ConnectionString(const String& text) { connectionString_ = text; }
  String RecordSource() const override { return Live(), recordSource_; }
  void RecordSource(const String& text) { recordSource_ = text; }
  host::RecordsetPtr RecordSet() const override { return Live(), recordSet_; }
  void RecordSet(host::RecordsetPtr rows) { recordSet_ = std::move(rows); }
  /// Error 3709 without a connection; what was open is closed first.
  void Refresh() override;

  /// Sets the connection and the two texts that belong to it.
  void Connect(host::ConnectionPtr connection, const String& recordSource);
  int Refreshes() const { return refreshes_; }

  void Load() override;

 private:
  host::ConnectionPtr connection_;
  String connectionString_;
  String recordSource_;
  host::RecordsetPtr recordSet_;
  int refreshes_ = 0;
};

}  // namespace tessaria::memory
