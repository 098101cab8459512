#include "tests/mask/session.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <vector>

#include "tessaria/memory/application.h"
#include "tessaria/text.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using memory::Stroke;

const std::map<std::string, Stroke> kNamedKeys = {
    {"Back", {8, 0, 8}},       {"Del", {46, 0, 0}},        {"F9", {120, 0, 0}},
    {"Enter", {13, 0, 13}},    {"Left", {37, 0, 0}},       {"Right", {39, 0, 0}},
    {"ShiftLeft", {37, 1, 0}}, {"ShiftRight", {39, 1, 0}}, {"Esc", {27, 0, 27}},
    {"Tab", {9, 0, 9}},        {"Space", {32, 0, u' '}},   {"Paste", {86, 2, 22}},
};

std::string TrimRight(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find(separator, start)) != std::string::npos;) {
    parts.push_back(text.substr(start, end - start));
    start = end + separator.size();
  }
  parts.push_back(text.substr(start));
  return parts;
}

/// The box with its caret or selection drawn in.
std::string Picture(const memory::TextBox& box) {
  String text = box.Text();
  const auto start = static_cast<std::size_t>(box.SelStart());
  if (box.SelLength() == 0) return ToUtf8(text.insert(start, u"|"));
  text.insert(start + static_cast<std::size_t>(box.SelLength()), u"]");
  return ToUtf8(text.insert(start, u"["));
}

class Player {
 public:
  void Line(const std::string& line) {
    const std::size_t arrow = line.find(" -> ");
    if (arrow != std::string::npos) {
      Step(line.substr(0, arrow), TrimRight(line.substr(arrow + 4)));
    } else {
      const std::size_t blank = line.find(' ');
      Setting(line.substr(0, blank), blank == std::string::npos ? "" : line.substr(blank + 1));
    }
  }

 private:
  void Setting(const std::string& name, const std::string& text) {
    if (name == "mask") {
      field_.Mask(FromUtf8(text));
    } else if (name == "prompt") {
      field_.Prompt(FromUtf8(text));
    } else if (name == "max") {
      field_.box.MaxLength(std::stoi(text));
    } else if (name == "negative") {
      field_.negative = true;
    } else if (name == "type") {
      field_.type = static_cast<TipoControle>(std::stoi(text));
    } else if (name == "password") {
      field_.box.PasswordChar(FromUtf8(text));
    } else if (name == "value") {
      field_.Show(FromUtf8(text));
    } else if (name == "show") {
      Show(FromUtf8(text));
    } else {
      ADD_FAILURE() << "unknown setting " << name;
    }
  }

  void Show(String text) {
    const std::size_t start = text.find_first_of(u"|[");
    text.erase(start, 1);
    const std::size_t end = text.find(u']');
    if (end != String::npos) text.erase(end, 1);
    field_.box.Text(text);
    field_.box.SelStart(static_cast<Long>(start));
    if (end != String::npos) field_.box.SelLength(static_cast<Long>(end - start));
  }

  void Step(const std::string& keys, const std::string& expected) {
    const int beepsBefore = app_.Beeps();
    const int calculatorsBefore = field_.calculators;
    std::istringstream names(keys);
    for (std::string name; names >> name;) Press(name);
    const std::vector<std::string> parts = Split(expected, " ; ");
    EXPECT_EQ(Picture(field_.box), parts.front());
    bool beep = false, calculator = false, error = false;
    for (std::size_t i = 1; i < parts.size(); ++i) {
      beep |= parts[i] == "beep";
      calculator |= parts[i] == "calculator";
      error |= parts[i].starts_with("error ");
      Check(parts[i]);
    }
    EXPECT_EQ(app_.Beeps() - beepsBefore, beep ? 1 : 0) << "beeps";
    EXPECT_EQ(field_.calculators - calculatorsBefore, calculator ? 1 : 0) << "calculators";
    EXPECT_TRUE(error || app_.TakeBoxes().empty()) << "error box";
  }

  void Press(const std::string& name) {
    const auto named = kNamedKeys.find(name);
    if (named == kNamedKeys.end()) return field_.box.Type(FromUtf8(name));
    field_.box.Hold(named->second);
    field_.box.Release(named->second);
  }

  void Check(const std::string& part) {
    const std::size_t blank = part.find(' ');
    const std::string name = part.substr(0, blank);
    const std::string text = blank == std::string::npos ? "" : part.substr(blank + 1);
    if (name == "texto") {
      EXPECT_EQ(ToUtf8(field_.Texto()), text);
    } else if (name == "key") {
      EXPECT_EQ(field_.lastKey, std::stoi(text)) << "key";
    } else if (name == "error") {
      const auto boxes = app_.TakeBoxes();
      ASSERT_EQ(boxes.size(), 1u);
      EXPECT_EQ(ToUtf8(boxes.front().Title),
                "Erro: " + text + " - Função: tsText.txtEdit_Keypress");
    } else {
      EXPECT_TRUE(name == "beep" || name == "calculator") << name;
    }
  }

  memory::Application app_;
  TestField field_;
};

}  // namespace

void Session(const std::string& transcript) {
  Player player;
  std::istringstream lines(transcript);
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    const std::size_t start = line.find_first_not_of(' ');
    if (start == std::string::npos) continue;
    SCOPED_TRACE("line " + std::to_string(number) + ": " + line);
    player.Line(line.substr(start));
  }
}

}  // namespace tessaria
