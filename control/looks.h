// The looks of a field: layout of box and button, colours, caption, picture, enabled state.
#pragma once

#include <memory>

#include "control/members.h"
#include "tessaria/host/control.h"

namespace tessaria {

/// What the looks of a field need from its form. Raises the errors of the names on it.
class LooksForm {
 public:
  virtual ~LooksForm() = default;
  /// The form's own name.
  virtual String FormName() const = 0;
  /// The caption's label, if the field has found one.
  virtual std::shared_ptr<host::Label> CaptionLabel() const = 0;
  virtual std::shared_ptr<host::TsTextWidget> Sibling() const = 0;
};

class Looks {
 public:
  /// All of them must outlive this object.
  Looks(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
        const FieldKind& kind, const FormTies& ties, Appearance& appearance, const LooksForm& form);
  Looks(const Looks&) = delete;
  Looks& operator=(const Looks&) = delete;

  /// Redraws everything. Errors are reported.
  void Draw();
  /// The size of the surface has changed. Errors are reported.
  void Resize();
  /// Updates the caption, which shows whether the field has the focus.
  void ColourFocused();
  void ColourUnfocused();

  bool Enabled() const { return txtEdit_.Enabled(); }
  /// A key field passes it on to its description if the two name each other.
  void Enabled(bool v);
  /// Assigned colours and fonts are stored.
  void Forecolor(Colour v);
  void BackColor(Colour v);
  void Font(const host::Font& v);

 private:
  bool ShowsButton() const;
  void LoadButtonPicture();
  void ColourCaption();
  void DrawForecolor(Colour v);
  void PutForecolor(Colour v);
  void DrawBackColor(Colour v);
  void PutBackColor(Colour v);

  host::ControlSite& site_;
  host::TextBox& txtEdit_;
  host::CommandButton& btnBrowse_;
  const FieldKind& kind_;
  const FormTies& ties_;
  Appearance& appearance_;
  const LooksForm& form_;
};

}  // namespace tessaria
