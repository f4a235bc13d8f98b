#include "view/tables/stringbuilder.h"

#include <gtest/gtest.h>

namespace tolvane {
namespace {

constexpr std::size_t kBlock = 1'200'000;

TEST(StringBuilder, StartsEmpty) {
  const StringBuilder builder;
  EXPECT_EQ(builder.mTextLength, 0);
  EXPECT_EQ(builder.Text(), u"");
}

TEST(StringBuilder, AppendsInOrderAndCountsUtf16Units) {
  StringBuilder builder;
  builder.Append(u"ID  ");
  builder.Append(u"");
  builder.Append(u"除外\r\n");
  EXPECT_EQ(builder.mTextLength, 8);
  EXPECT_EQ(builder.Text(), u"ID  除外\r\n");
}

TEST(StringBuilder, TextBeyondOneBlockGrowsByOneMore) {
  StringBuilder builder;
  builder.Append(String(kBlock - 1, u'a'));
  builder.Append(u"bcd");
  EXPECT_EQ(builder.mTextLength, 1'200'002);
  EXPECT_EQ(builder.Text(), String(kBlock - 1, u'a') + u"bcd");
}

TEST(StringBuilder, OfAnAppendLongerThanABlockOnlyWhatFitsIsKept) {
  StringBuilder builder;
  builder.Append(String(kBlock + 5, u'a'));
  EXPECT_EQ(builder.mTextLength, 1'200'005);
  EXPECT_EQ(builder.Text(), String(kBlock, u'a'));

  builder.Append(u"");
  EXPECT_EQ(builder.Text(), String(kBlock, u'a'));
  builder.Append(u"b");
  EXPECT_EQ(builder.Text(), String(kBlock, u'a') + String(5, u'\0') + u"b");
}

TEST(StringBuilder, AfterClearingItBehavesAsANewOne) {
  StringBuilder builder;
  builder.Append(String(kBlock, u'x'));
  builder.Append(String(kBlock, u'x'));
  builder.AllClear();
  EXPECT_EQ(builder.mTextLength, 0);
  EXPECT_EQ(builder.Text(), u"");

  builder.Append(String(kBlock + 2, u'a'));
  EXPECT_EQ(builder.Text(), String(kBlock, u'a'));
  builder.Append(u"b");
  EXPECT_EQ(builder.Text(), String(kBlock, u'a') + String(2, u'\0') + u"b");
}

TEST(StringBuilder, MemoryTakenAheadChangesNoText) {
  StringBuilder builder(8);
  builder.TakeMemory();
  EXPECT_EQ(builder.Text(), u"");
  builder.Append(u"12345678");
  builder.TakeMemory();
  EXPECT_EQ(builder.Text(), u"12345678");
  builder.Append(u"9");
  EXPECT_EQ(builder.Text(), u"123456789");
}

TEST(StringBuilder, TextBeyondABlockOfAnySizeGrowsByOneMore) {
  StringBuilder builder(4);
  builder.Append(u"123");
  builder.Append(u"456789");
  EXPECT_EQ(builder.mTextLength, 9);
  EXPECT_EQ(builder.Text(), u"12345678") << "only what fits is kept";
}

TEST(StringBuilder, ATextThatFillsItsBlockTakesNoFurtherOne) {
  StringBuilder builder(4);
  builder.Append(u"12");
  builder.Append(u"34");
  builder.Append(u"56789");
  EXPECT_EQ(builder.Text(), u"12345678");
}

// The library's memory tells what is written behind it, at the latest where it is given back.
TEST(StringBuilder, WhatDoesNotFitIsNotWrittenBehindTheStorage) {
  constexpr std::size_t kSmall = 1000;
  StringBuilder builder(kSmall);
  builder.Append(String(kSmall - 1, u'a'));
  builder.Append(String(5 * kSmall, u'b'));
  EXPECT_EQ(builder.Text(), String(kSmall - 1, u'a') + String(kSmall + 1, u'b'));
}

}  // namespace
}  // namespace tolvane
