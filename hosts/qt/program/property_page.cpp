#include "tessaria/qt/property_page.h"

#include <utility>

#include "hosts/qt/dialogs/surface.h"
#include "propertypage/property_page.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {

class PropertyPage::Parts final : public host::PropertyPageSite {
 public:
  Parts(const QList<TsText*>& fields, std::function<void(bool)> changed)
      : fields_(fields), whenChanged_(std::move(changed)) {}

  Long SelectedCount() const override { return static_cast<Long>(fields_.size()); }
  std::shared_ptr<host::TsTextWidget> Selected(Long position) const override {
    if (position < 0 || position >= SelectedCount()) throw HostError(errors::SubscriptOutOfRange);
    return std::dynamic_pointer_cast<host::TsTextWidget>(makeWidget(*fields_.at(position)));
  }
  bool Changed() const override { return changed_; }
  void Changed(bool changed) override {
    changed_ = changed;
    whenChanged_(changed);
  }

  FramedSurface framed = makeSurface(tsTextProperty::Description());
  tsTextProperty page{framed.surface, *this};

 private:
  const QList<TsText*> fields_;
  const std::function<void(bool)> whenChanged_;
  bool changed_ = false;
};

PropertyPage::PropertyPage(const QList<TsText*>& fields, std::function<void(bool)> changed)
    : parts_(std::make_unique<Parts>(fields, std::move(changed))) {}

PropertyPage::~PropertyPage() = default;

QWidget& PropertyPage::widget() { return *parts_->framed.widget; }

void PropertyPage::read() { parts_->page.PropertyPage_SelectionChanged(); }

void PropertyPage::apply() { parts_->page.PropertyPage_ApplyChanges(); }

}  // namespace tessaria::qt
