// The lines of an order: product, quantity and price.
#pragma once

#include <QObject>
#include <QString>
#include <array>

#include "tessaria/host/data.h"

class QLabel;
class QWidget;

namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

/// Three lines of unbound fields; their rows are written together with the order's.
class OrderLines final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kCount = 3;

  explicit OrderLines(QWidget& form);

  /// Shows the lines of an order; an empty number clears them. Raises the database's errors.
  void load(host::Connection& connection, const QString& order);
  /// Replaces the order's rows. Called inside its transaction.
  void write(host::Connection& connection, const QString& order) const;

  /// Whether the fields differ from what was loaded.
  bool isChanged() const;
  bool isEmpty() const;
  /// What is wrong, and in which field; an empty text when nothing is wrong.
  QString fault(qt::TsText*& where) const;
  double total() const;

  /// The object name of a field in a line, counted from 0: "produto1" in the first one.
  static QString nameOf(const char* field, int line);

 signals:
  /// Something that is stored has changed.
  void changed();

 private:
  struct Line {
    qt::TsText *product, *description, *quantity, *price, *total;
    QString priced;  ///< the product whose price was proposed
  };
  struct Content {
    QString product;
    double quantity = 0;
    double price = 0;
    bool operator==(const Content& other) const {
      return product == other.product && quantity == other.quantity && price == other.price;
    }
  };

  void connectLine(Line& line);
  void productChosen(Line& line);
  void show(Line& line, const Content& content);
  void showTotals();
  static Content contentOf(const Line& line);
  static double totalOf(const Line& line);

  std::array<Line, kCount> lines_;
  std::array<Content, kCount> loaded_;
  QLabel* total_;  ///< of the order
};

}  // namespace tessaria::demo
