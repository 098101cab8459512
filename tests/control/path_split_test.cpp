// A path field splits its text into folder and file.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

struct PathRow {
  const char16_t* Text;
  const char16_t* Folder;
  const char16_t* File;
};

const PathRow paths[] = {
    {u"C:\\Dados\\lista.txt", u"C:\\Dados", u"lista.txt"},
    {u"C:\\Dados\\", u"C:\\Dados", u""},
    {u"\\lista.txt", u"", u"lista.txt"},
    {u"a/b\\c/d", u"a/b", u"c/d"},  // only this host's separator counts
};

class PathTest : public ControlTest {
 protected:
  PathTest() : field(AddField(u"txtCaminho")) {
    (*field)->TipoControle(TipoControle::Diretorio);
    (*field)->Refresh();
  }
  FieldPtr field;
};

TEST_F(PathTest, ATextIsSplitAtItsLastSeparator) {
  for (const PathRow& row : paths) {
    SCOPED_TRACE(ToUtf8(row.Text));
    field->ForgetEvents();
    field->txtEdit().Text(row.Text);
    EXPECT_EQ((*field)->DirFilePath(), row.Folder);
    EXPECT_EQ((*field)->DirFileName(), row.File);
    EXPECT_EQ(field->Events(Kind::Change).size(), 1u);
  }
}

TEST_F(PathTest, AFolderFieldTakesTheWholeText) {
  (*field)->DirVerArquivos(false);
  (*field)->DirFileName(u"antes.txt");
  field->txtEdit().Text(u"C:\\Dados\\lista.txt");
  EXPECT_EQ((*field)->DirFilePath(), u"C:\\Dados\\lista.txt");
  EXPECT_EQ((*field)->DirFileName(), u"");
}

TEST_F(PathTest, AnEmptyTextEmptiesBoth) {
  field->txtEdit().Text(u"C:\\a.txt");
  field->txtEdit().Text(u"");
  EXPECT_EQ((*field)->DirFilePath(), u"");
  EXPECT_EQ((*field)->DirFileName(), u"");
}

TEST_F(PathTest, OtherKindsDoNotSplit) {
  const auto other = AddField(u"txtOutro");
  other->txtEdit().Text(u"C:\\a.txt");
  EXPECT_EQ((*other)->DirFilePath(), u"");
  EXPECT_EQ(other->Events(Kind::Change).size(), 1u);
}

// A text without a separator makes the split ask for -1 characters. That is an error of the Change
// event, in every host, whoever has changed the text.
TEST_F(PathTest, ATextWithoutASeparatorIsAnErrorOfTheChangeEventAndStays) {
  (*field)->Text(u"lista.txt");
  ASSERT_EQ(form->UnhandledErrors().size(), 1u);
  EXPECT_EQ(form->UnhandledErrors()[0].Number(), 5);
  EXPECT_EQ(field->txtEdit().Text(), u"lista.txt");
  EXPECT_THAT(field->Events(Kind::Change), IsEmpty());
}

TEST_F(PathTest, ATypedLetterWithoutASeparatorStaysAndTheProgramContinues) {
  form->Show();
  form->Focus(u"txtCaminho");
  form->Type(u"a");
  EXPECT_EQ(field->txtEdit().Text(), u"a");
  ASSERT_EQ(form->UnhandledErrors().size(), 1u);
  EXPECT_EQ(form->UnhandledErrors()[0].Number(), 5);
  form->Type(u"\\");
  EXPECT_EQ((*field)->DirFilePath(), u"a");
}

TEST_F(PathTest, AnAssignedValueWithoutASeparatorAlsoStays) {
  (*field)->Value(u"lista.txt");
  const auto boxes = app.TakeBoxes();
  ASSERT_FALSE(boxes.empty());
  EXPECT_EQ(boxes[0].Text, ErrorDescription(5));
  EXPECT_EQ(boxes[0].Title, form->Name());
  EXPECT_THAT((*field)->Value(), IsValue(u"lista.txt"));
}

}  // namespace
}  // namespace tessaria::test
