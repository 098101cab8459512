// What the guides to masks tell of each ready mask, typed into a field.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tessaria/conversion.h"
#include "tessaria/field_settings.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tessaria/utf8.h"

namespace tessaria::tests {
namespace {

std::string Trimmed(std::string text) {
  while (!text.empty() && (text.back() == ' ' || text.back() == '`')) text.pop_back();
  const auto start = text.find_first_not_of(" `");
  return start == std::string::npos ? std::string() : text.substr(start);
}

// The cells of the table rows that have seven: field, mask, settings, typed, shown, text, value.
std::vector<std::vector<std::string>> Examples(const std::string& page) {
  std::ifstream file(std::string(TESSARIA_SOURCE_DIR "/docs/") + page);
  std::vector<std::vector<std::string>> examples;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("| ")) continue;
    std::istringstream text(line.substr(1));
    std::vector<std::string> cells;
    for (std::string cell; std::getline(text, cell, '|');) cells.push_back(Trimmed(cell));
    if (cells.size() == 7) examples.push_back(std::move(cells));
  }
  if (!examples.empty()) examples.erase(examples.begin());  // the headings
  return examples;
}

FieldSettings SettingsOf(const std::vector<std::string>& example) {
  FieldSettings settings{.name = u"campo", .mask = FromUtf8(example[1])};
  std::istringstream words(example[2]);
  for (std::string word; std::getline(words, word, ' ');) {
    if (word == "promptInclude") settings.promptInclude = true;
    if (word.starts_with("maxLength=")) settings.maxLength = std::stoi(word.substr(10));
    if (word == "number") settings.type = DataType::Number;
    if (word == "date") settings.type = DataType::Date;
  }
  return settings;
}

class MaskGuide : public testing::TestWithParam<const char*> {};

TEST_P(MaskGuide, TellsWhatAFieldDoes) {
  const auto examples = Examples(GetParam());
  ASSERT_GE(examples.size(), 10U);
  for (const auto& example : examples) {
    SCOPED_TRACE(example[0] + " " + example[3]);
    memory::Application application;
    const auto form = memory::Form::Create(u"frmMascara");
    const auto field = form->Add<memory::TsText>(SettingsOf(example));
    form->Add<memory::TsText>(String(u"outro"));
    form->Show();
    form->Focus(u"campo");
    form->Type(FromUtf8(example[3]));
    form->Press(memory::Key::Tab);
    EXPECT_EQ(ToUtf8((*field)->Text()), example[4]);
    EXPECT_EQ(ToUtf8((*field)->Texto()), example[5]);
    EXPECT_EQ(ToUtf8(CStr((*field)->Value())), example[6]);
    EXPECT_TRUE(application.Boxes().empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, MaskGuide, testing::Values("masks.md", "masks.pt-BR.md"));

}  // namespace
}  // namespace tessaria::tests
