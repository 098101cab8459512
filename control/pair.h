// The pair of a key and its description.
#pragma once

#include <memory>
#include <vector>

#include "control/definitions.h"
#include "control/value.h"

namespace tessaria {

/// What a pair needs from its form.
class PairForm {
 public:
  virtual ~PairForm() = default;
  /// The sibling's widget. Errors: 730 for an unknown name, 438 for a widget that is not a control
  /// of the library.
  virtual std::shared_ptr<host::TsTextWidget> Sibling() const = 0;
  /// The definition's where text with its parameters replaced. Error 730 as above.
  virtual String Condition(const Browse& definition) const = 0;
};

/// One field's half of the pair.
class Pair final : public ValueFollower {
 public:
  /// All of them must outlive this object.
  Pair(host::ControlSite& site, FieldBox& box, const FieldKind& kind, const FormTies& ties,
       FieldContents& contents, Definitions& definitions, const PairForm& form,
       tsTextEvents& events);
  Pair(const Pair&) = delete;
  Pair& operator=(const Pair&) = delete;

  /// Looks up the value that the field shows, and passes what was found to the sibling.
  void Follow(AssignMode mode) override;
  /// Does the same on demand. Errors are reported. The flags are those of `AtualizaIrmao`.
  void Refresh(bool ApenasTsBrowse, bool DisparaBrowseReturn, AssignMode mode);
  void RaiseBrowseReturn();

  /// Stores the key as the thread's sibling value when a description gets the focus.
  void FetchSiblingLiteral() const;
  /// Completes what the operator has typed into a description.
  void Complete(Integer KeyCode);

 private:
  /// How to look up a value, and whether to pass what was found to the sibling.
  struct Search {
    bool NarrowsToKey;
    bool HandsOn;
  };
  enum class Outcome { Blank, Searched, HandedOn };

  Outcome LookUp(Search search, AssignMode mode);
  bool HasSibling() const;
  void HandOn(const Variant& value, AssignMode mode);
  void RefreshBack(AssignMode mode);
  bool ComesRound() const;
  String SiblingCondition() const;
  String KeyFilter(const String& siblingField) const;
  String SiblingLiteral() const;

  host::ControlSite& site_;
  FieldBox& box_;
  const FieldKind& kind_;
  const FormTies& ties_;
  FieldContents& contents_;
  Definitions& definitions_;
  const PairForm& form_;
  tsTextEvents& events_;
  std::vector<Variant> handedOn_;  ///< values whose sibling step is running, outermost first
};

}  // namespace tessaria
