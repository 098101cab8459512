// The property page as Designer's dialog shows it, and who makes it.
#pragma once

#include <QList>
#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>

namespace tessaria::qt {
class TsText;
}

namespace tessaria::designer {

/// The page edits its field while it is open, so that the form shows the field as it will be. Its
/// members may throw: the dialog shows the error in a box and stays open. The field may be gone
/// when the page is destroyed, and nothing else is called then.
///
/// The dialog calls `apply` after each change too, on a field with the settings last applied: what
/// the page has written before does not add up.
class Page {
 public:
  Page() = default;
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  virtual ~Page() = default;

  /// The page's surface, which belongs to the page.
  virtual QWidget& widget() = 0;
  /// Reads the field again: its definitions may be other objects than before.
  virtual void read() = 0;
  /// Writes all that the page holds to the field.
  virtual void apply() = 0;
};

struct PageContext {
  /// The selected fields; the page edits the last one.
  QList<qt::TsText*> selected;
  /// To be called with true when the page holds something that can be applied, and with false once
  /// it has taken over what the field holds.
  std::function<void(bool)> changed;
};

/// Makes a page for each time that it is opened; the dialog calls `read` next.
using PageFactory = std::function<std::unique_ptr<Page>(const PageContext&)>;

/// The plugin, to those who give it its page.
class PageHost {
 public:
  virtual ~PageHost() = default;
  virtual const PageFactory& pageFactory() const = 0;
  /// While there is no factory, Designer does not offer the page.
  virtual void setPageFactory(PageFactory factory) = 0;
};

}  // namespace tessaria::designer

Q_DECLARE_INTERFACE(tessaria::designer::PageHost, "tessaria.designer.PageHost")
