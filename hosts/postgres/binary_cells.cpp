#include "hosts/postgres/binary_cells.h"

#include <bit>
#include <cstdint>
#include <string>

#include "hosts/postgres/far_dates.h"
#include "hosts/sql/errors/driver_error.h"

namespace tessaria::postgres {
namespace {

using sql::ColumnStore;

[[noreturn]] void ThrowUnreadable() {
  throw sql::DriverError("08P01", u"O servidor enviou um valor em uma forma desconhecida.");
}

// A whole number, which the server sends with its high bytes first.
template <class T>
T BigEndian(std::string_view bytes, std::size_t at = 0) {
  if (bytes.size() < at + sizeof(T)) ThrowUnreadable();
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
  }
  return static_cast<T>(value);
}

void AppendHex(std::string& text, std::string_view bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  for (const char c : bytes) {
    text += kDigits[static_cast<unsigned char>(c) >> 4];
    text += kDigits[static_cast<unsigned char>(c) & 15];
  }
}

// A numeric: digits to the base 10000, of which the first counts 10000^weight, and the number of
// decimals that are shown.
class Numeric {
 public:
  explicit Numeric(std::string_view bytes)
      : bytes_(bytes),
        count_(BigEndian<std::int16_t>(bytes, 0)),
        weight_(BigEndian<std::int16_t>(bytes, 2)),
        sign_(BigEndian<std::uint16_t>(bytes, 4)),
        decimals_(BigEndian<std::uint16_t>(bytes, 6)) {}

  std::string Text() const {
    switch (sign_) {
      case kNaN:
        return "NaN";
      case kInfinity:
        return "Infinity";
      case kMinusInfinity:
        return "-Infinity";
      default:
        return Digits();
    }
  }

 private:
  static constexpr std::uint16_t kNegative = 0x4000, kNaN = 0xC000, kInfinity = 0xD000,
                                 kMinusInfinity = 0xF000;
  static constexpr std::size_t kHeader = 8;

  // Four decimal digits; those that were not sent are zeros.
  void AppendGroup(std::string& text, int group) const {
    const bool isSent = group >= 0 && group < count_;
    int digits =
        isSent ? BigEndian<std::int16_t>(bytes_, kHeader + 2 * static_cast<std::size_t>(group)) : 0;
    for (int unit = 1000; unit > 0; unit /= 10) {
      text += static_cast<char>('0' + digits / unit % 10);
    }
  }

  std::string Digits() const {
    std::string whole;
    for (int group = 0; group <= weight_; ++group) AppendGroup(whole, group);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    std::string text = sign_ == kNegative ? "-" : "";
    text += whole.empty() ? "0" : whole;
    if (decimals_ == 0) return text;
    std::string fraction;
    for (int group = weight_ + 1; fraction.size() < decimals_; ++group) {
      AppendGroup(fraction, group);
    }
    return text + '.' + fraction.substr(0, decimals_);
  }

  std::string_view bytes_;
  int count_, weight_;
  std::uint16_t sign_, decimals_;
};

}  // namespace

void AppendBool(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, BigEndian<std::uint8_t>(bytes));
}

void AppendInt2(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, BigEndian<std::int16_t>(bytes));
}

void AppendInt4(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, BigEndian<std::int32_t>(bytes));
}

void AppendInt8(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, BigEndian<std::int64_t>(bytes));
}

void AppendOid(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, static_cast<std::int64_t>(BigEndian<std::uint32_t>(bytes)));
}

void AppendFloat4(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, std::bit_cast<float>(BigEndian<std::uint32_t>(bytes)));
}

void AppendFloat8(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendFixed(column, std::bit_cast<double>(BigEndian<std::uint64_t>(bytes)));
}

void AppendNumeric(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendUtf8(column, Numeric(bytes).Text());
}

void AppendDate(ColumnStore& store, std::size_t column, std::string_view bytes) {
  const auto days = BigEndian<std::int32_t>(bytes);
  const auto day = NearDay(days);
  day ? store.AppendFixed(column, *day) : store.AppendKept(column, FarDateText(days));
}

void AppendTime(ColumnStore& store, std::size_t column, std::string_view bytes) {
  const auto micros = BigEndian<std::int64_t>(bytes);
  IsWithinDay(micros) ? store.AppendFixed(column, micros)
                      : store.AppendKept(column, FarTimeText(micros));
}

void AppendTimestamp(ColumnStore& store, std::size_t column, std::string_view bytes) {
  const auto micros = BigEndian<std::int64_t>(bytes);
  const auto moment = NearMoment(micros);
  moment ? store.AppendFixed(column, *moment) : store.AppendKept(column, FarMomentText(micros));
}

void AppendUuid(ColumnStore& store, std::size_t column, std::string_view bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
    AppendHex(text, bytes.substr(i, 1));
  }
  store.AppendUtf8(column, text);
}

void AppendBytea(ColumnStore& store, std::size_t column, std::string_view bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  AppendHex(text, bytes);
  store.AppendUtf8(column, text);
}

void AppendPlainText(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendUtf8(column, bytes);
}

void AppendPadded(ColumnStore& store, std::size_t column, std::string_view bytes) {
  store.AppendUtf8(column, bytes.substr(0, bytes.find_last_not_of(' ') + 1));
}

}  // namespace tessaria::postgres
