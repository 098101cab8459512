// The lines of an order: what is sold, how much, at which price.
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

/// Three lines of fields that are not bound: their rows are written together with the order's.
class OrderLines final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kCount = 3;

  explicit OrderLines(QWidget& form);

  /// Shows the lines of an order; an empty number clears them. Raises what the database says.
  void load(host::Connection& connection, const QString& order);
  /// Replaces the order's rows. Called inside its transaction.
  void write(host::Connection& connection, const QString& order) const;

  /// Whether something else stands in the fields than was loaded.
  bool isChanged() const;
  bool isEmpty() const;
  /// What is wrong, and where; an empty text when nothing is.
  QString fault(qt::TsText*& where) const;
  double total() const;

  /// What the field "nome" of line 1 is called: "nome1".
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
