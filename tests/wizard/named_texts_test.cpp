// Texts by key.
#include "wizard/named_texts.h"

#include <gtest/gtest.h>

#include "tessaria/error.h"
#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using wizard::NamedTexts;

Long NumberOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const HostError& error) {
    return error.Number();
  }
  return 0;
}

TEST(NamedTexts, ATextIsFoundByItsKey) {
  NamedTexts texts;
  texts.Add(u"Cliente", u"Pagador");
  EXPECT_EQ(texts.Item(u"Pagador"), u"Cliente");
  EXPECT_TRUE(texts.HasItem(u"Cliente"));
  EXPECT_FALSE(texts.HasItem(u"Pagador"));
  EXPECT_TRUE(texts.HasKey(u"Pagador"));
  EXPECT_FALSE(texts.HasKey(u"pagador"));
}

TEST(NamedTexts, AKeyIsTakenOnce) {
  NamedTexts texts;
  texts.Add(u"Cliente", u"Cliente");
  EXPECT_EQ(NumberOf([&] { texts.Add(u"Cidade", u"Cliente"); }), errors::DuplicateKey);
  EXPECT_EQ(texts.Item(u"Cliente"), u"Cliente");
  EXPECT_EQ(texts.Count(), 1);
}

TEST(NamedTexts, AnUnknownKeyIsAnError) {
  NamedTexts texts;
  EXPECT_EQ(NumberOf([&] { texts.Item(u"Cliente"); }), errors::InvalidArgument);
  EXPECT_EQ(NumberOf([&] { texts.Remove(u"Cliente"); }), errors::InvalidArgument);
}

TEST(NamedTexts, ARemovedKeyCanBeTakenAgain) {
  NamedTexts texts;
  texts.Add(u"Cliente", u"Cliente");
  texts.Remove(u"Cliente");
  EXPECT_EQ(texts.Count(), 0);
  texts.Add(u"Cidade", u"Cliente");
  EXPECT_EQ(texts.Item(u"Cliente"), u"Cidade");
}

}  // namespace
}  // namespace tessaria::test
