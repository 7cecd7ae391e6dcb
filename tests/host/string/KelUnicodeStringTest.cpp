#include <gtest/gtest.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "KelUnicodeString.h"

namespace
{
// "aé€𝄞b": one, two, three and four bytes per character.
const char* const Mixed =
    "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E"
    "b";
}  // namespace

TEST(KelUnicodeString, IsBuiltEmptyFromNothingAndFromNullText)
{
  EXPECT_TRUE(KelUnicodeString().IsEmpty());
  EXPECT_TRUE(KelUnicodeString(static_cast<const char*>(nullptr)).IsEmpty());
  EXPECT_EQ(KelUnicodeString(static_cast<const char*>(nullptr), 4).GetLengthInByte(), 0u);
  KelUnicodeString Text("x");
  Text = static_cast<const char*>(nullptr);
  EXPECT_TRUE(Text.IsEmpty());
}

TEST(KelUnicodeString, StoresUtf8AsGiven)
{
  const KelUnicodeString Text(Mixed);
  EXPECT_EQ(Text.ToUtf8(), std::string(Mixed));
  EXPECT_EQ(Text.GetLengthInByte(), 11u);
  EXPECT_STREQ(Text.ConvertToChar(), Mixed);
}

TEST(KelUnicodeString, EqualityIsExactAndCaseSensitive)
{
  const KelUnicodeString Text("Value");
  EXPECT_TRUE(Text == "Value");
  EXPECT_TRUE("Value" == Text);
  EXPECT_TRUE(Text == KelUnicodeString("Value"));
  EXPECT_TRUE(Text != "value");
  EXPECT_TRUE(Text != "Value ");
  EXPECT_TRUE("value" != Text);
  EXPECT_FALSE(Text == static_cast<const char*>(nullptr));
  EXPECT_TRUE(KelUnicodeString() == static_cast<const char*>(nullptr));
}

TEST(KelUnicodeString, CompareIsNonZeroOnlyForTheSameCharacters)
{
  EXPECT_NE(KelUnicodeString("yes").Compare("yes"), 0);
  EXPECT_EQ(KelUnicodeString("yes").Compare("YES"), 0);
  EXPECT_EQ(KelUnicodeString("yes").Compare("yes "), 0);
  EXPECT_EQ(KelUnicodeString("yes").Compare(""), 0);
  EXPECT_NE(KelUnicodeString().Compare(""), 0);
  EXPECT_NE(KelUnicodeString(Mixed).Compare(Mixed), 0);
}

TEST(KelUnicodeString, AppendAndPlusEqualConcatenate)
{
  KelUnicodeString Text("ab");
  Text += "cd";
  Text += KelUnicodeString("ef");
  Text += static_cast<const char*>(nullptr);
  EXPECT_EQ(&Text.Append(KelUnicodeString("gh")), &Text);
  EXPECT_EQ(Text, "abcdefgh");
  Text.AppendBytes("ijk", 2);
  EXPECT_EQ(Text, "abcdefghij");
}

TEST(KelUnicodeString, AssignmentCopiesTheValue)
{
  KelUnicodeString First("one");
  KelUnicodeString Second = First;
  Second += "!";
  EXPECT_EQ(First, "one");
  EXPECT_EQ(Second, "one!");
  First = "two";
  EXPECT_EQ(First, "two");
}

TEST(KelUnicodeString, ToLowerChangesAsciiLettersOnly)
{
  KelUnicodeString Text(
      "AbC-Z\xC3\x89\xC3\xA9"
      "1");  // "AbC-ZÉé1"
  Text.ToLower();
  EXPECT_EQ(Text,
            "abc-z\xC3\x89\xC3\xA9"
            "1");
}

TEST(KelUnicodeString, LengthCountsCodePoints)
{
  EXPECT_EQ(KelUnicodeString().GetLengthInChar(), 0);
  EXPECT_EQ(KelUnicodeString("abc").GetLengthInChar(), 3);
  EXPECT_EQ(KelUnicodeString(Mixed).GetLengthInChar(), 5);
}

TEST(KelUnicodeString, InvalidUtf8CountsEachBadByteAsOneCharacter)
{
  // A lone continuation byte, a truncated sequence, an overlong form, a
  // surrogate and a byte that never starts a sequence.
  EXPECT_EQ(KelUnicodeString("\x80").GetLengthInChar(), 1);
  EXPECT_EQ(KelUnicodeString("a\xE2\x82").GetLengthInChar(), 3);
  EXPECT_EQ(KelUnicodeString("\xC0\xAF").GetLengthInChar(), 2);
  EXPECT_EQ(KelUnicodeString("\xED\xA0\x80").GetLengthInChar(), 3);
  EXPECT_EQ(KelUnicodeString("\xFF"
                             "a")
                .GetLengthInChar(),
            2);
  EXPECT_EQ(KelUnicodeString("\xF4\x90\x80\x80").GetLengthInChar(), 4);
}

TEST(KelUnicodeString, InvalidUtf8NeverReadsOutsideTheText)
{
  // A lead byte announcing four bytes at the very end of the text.
  const KelUnicodeString Text(std::string("ab\xF0", 3));
  EXPECT_EQ(Text.GetLengthInChar(), 3);
  EXPECT_EQ(Text.SubString(2, 5).ToUtf8(), std::string("\xF0"));
  EXPECT_EQ(Text.SearchSubString("\xF0", 0), 2);
  EXPECT_EQ(Text.SearchSubString("\x9D", 0), -1);
}

TEST(KelUnicodeString, SubStringCountsCharactersFromZero)
{
  const KelUnicodeString Text(Mixed);
  EXPECT_EQ(Text.SubString(0, 1), "a");
  EXPECT_EQ(Text.SubString(1, 2), "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(Text.SubString(3, 2),
            "\xF0\x9D\x84\x9E"
            "b");
  EXPECT_EQ(KelUnicodeString("abcdef").SubString(2, 3), "cde");
}

TEST(KelUnicodeString, SubStringClampsOutOfRangeArguments)
{
  const KelUnicodeString Ascii("abcdef");
  EXPECT_EQ(Ascii.SubString(-3, 2), "ab");
  EXPECT_EQ(Ascii.SubString(4, 100), "ef");
  EXPECT_EQ(Ascii.SubString(6, 1), "");
  EXPECT_EQ(Ascii.SubString(100, 1), "");
  EXPECT_EQ(Ascii.SubString(1, -1), "");
  const KelUnicodeString Text(Mixed);
  EXPECT_EQ(Text.SubString(-1, 2), "a\xC3\xA9");
  EXPECT_EQ(Text.SubString(4, 9), "b");
  EXPECT_EQ(Text.SubString(9, 9), "");
  EXPECT_EQ(Text.SubString(2, -5), "");
  EXPECT_EQ(KelUnicodeString().SubString(0, 3), "");
}

TEST(KelUnicodeString, SearchForwardFindsTheFirstOccurrenceAtOrAfterStart)
{
  const KelUnicodeString Text("abcabc");
  EXPECT_EQ(Text.SearchSubString("bc", 0, KelUnicodeString::KelSearchForward), 1);
  EXPECT_EQ(Text.SearchSubString("bc", 1, KelUnicodeString::KelSearchForward), 1);
  EXPECT_EQ(Text.SearchSubString("bc", 2, KelUnicodeString::KelSearchForward), 4);
  EXPECT_EQ(Text.SearchSubString("bc", 5, KelUnicodeString::KelSearchForward), -1);
  EXPECT_EQ(Text.SearchSubString("x", 0, KelUnicodeString::KelSearchForward), -1);
  EXPECT_EQ(Text.SearchSubString("bc"), 1);
}

TEST(KelUnicodeString, SearchBackwardFindsTheLastOccurrenceAtOrBeforeStart)
{
  const KelUnicodeString Text("abcabc");
  const int Length = Text.GetLengthInChar();
  EXPECT_EQ(Text.SearchSubString("bc", Length, KelUnicodeString::KelSearchBackward), 4);
  EXPECT_EQ(Text.SearchSubString("bc", 4, KelUnicodeString::KelSearchBackward), 4);
  EXPECT_EQ(Text.SearchSubString("bc", 3, KelUnicodeString::KelSearchBackward), 1);
  EXPECT_EQ(Text.SearchSubString("bc", 0, KelUnicodeString::KelSearchBackward), -1);
  EXPECT_EQ(Text.SearchSubString("ab", 0, KelUnicodeString::KelSearchBackward), 0);
  EXPECT_EQ(Text.SearchSubString("x", Length, KelUnicodeString::KelSearchBackward), -1);
}

TEST(KelUnicodeString, SearchPositionsCountCharactersInUtf8Text)
{
  // "é€aé€b"
  const KelUnicodeString Text(
      "\xC3\xA9\xE2\x82\xAC"
      "a\xC3\xA9\xE2\x82\xAC"
      "b");
  EXPECT_EQ(Text.SearchSubString("\xE2\x82\xAC", 0, KelUnicodeString::KelSearchForward), 1);
  EXPECT_EQ(Text.SearchSubString("\xE2\x82\xAC", 2, KelUnicodeString::KelSearchForward), 4);
  EXPECT_EQ(Text.SearchSubString("b", 0, KelUnicodeString::KelSearchForward), 5);
  EXPECT_EQ(Text.SearchSubString("\xC3\xA9", 6, KelUnicodeString::KelSearchBackward), 3);
  EXPECT_EQ(Text.SearchSubString("\xC3\xA9", 2, KelUnicodeString::KelSearchBackward), 0);
}

TEST(KelUnicodeString, SearchClampsTheStartPosition)
{
  const KelUnicodeString Text("abcabc");
  EXPECT_EQ(Text.SearchSubString("a", -5, KelUnicodeString::KelSearchForward), 0);
  EXPECT_EQ(Text.SearchSubString("a", 100, KelUnicodeString::KelSearchForward), -1);
  EXPECT_EQ(Text.SearchSubString("a", 100, KelUnicodeString::KelSearchBackward), 3);
  EXPECT_EQ(Text.SearchSubString("a", -5, KelUnicodeString::KelSearchBackward), 0);
  EXPECT_EQ(KelUnicodeString().SearchSubString("a", 3), -1);
}

TEST(KelUnicodeString, SearchOfAnEmptyPatternFindsTheClampedStart)
{
  const KelUnicodeString Text("abc");
  EXPECT_EQ(Text.SearchSubString("", 1, KelUnicodeString::KelSearchForward), 1);
  EXPECT_EQ(Text.SearchSubString("", 9, KelUnicodeString::KelSearchForward), 3);
  EXPECT_EQ(Text.SearchSubString("", 2, KelUnicodeString::KelSearchBackward), 2);
}

TEST(KelUnicodeString, SearchInMalformedTextMatchesOnlyAtCharacterStarts)
{
  // "\xC3\xA9" is one character; its second byte alone is not a match.
  const KelUnicodeString Text("\xC3\xA9\xA9");
  EXPECT_EQ(Text.SearchSubString("\xA9", 0, KelUnicodeString::KelSearchForward), 1);
  EXPECT_EQ(Text.SearchSubString("\xA9", 2, KelUnicodeString::KelSearchBackward), 1);
  EXPECT_EQ(Text.SearchSubString("\xA9", 0, KelUnicodeString::KelSearchBackward), -1);
}

TEST(KelUnicodeString, HashesAndOrdersByContent)
{
  EXPECT_EQ(std::hash<KelUnicodeString>()(KelUnicodeString("k")), std::hash<KelUnicodeString>()(KelUnicodeString("k")));
  EXPECT_TRUE(KelUnicodeString("a") < KelUnicodeString("b"));
  EXPECT_FALSE(KelUnicodeString("b") < KelUnicodeString("a"));
}

TEST(KelUnicodeString, TakesSixteenBytesWhateverItsLength) { EXPECT_EQ(sizeof(KelUnicodeString), 16u); }

TEST(KelUnicodeString, TextsOfEveryLengthAroundTheShortLimitKeepTheirBytesAndEndWithANul)
{
  for (std::size_t Length = 0; Length <= 40; ++Length)
  {
    const std::string Bytes(Length, 'x');
    const KelUnicodeString Text(Bytes.c_str());
    EXPECT_EQ(Text.GetLengthInByte(), Length);
    EXPECT_EQ(Text.ToUtf8(), Bytes);
    EXPECT_EQ(Text.ConvertToChar()[Length], '\0');
    KelUnicodeString Built;
    for (std::size_t i = 0; i < Length; ++i)
      Built += "x";
    EXPECT_EQ(Built, Text);
    EXPECT_EQ(Built.ConvertToChar()[Length], '\0');
  }
}

TEST(KelUnicodeString, KeepsNulBytesInsideTheText)
{
  const KelUnicodeString Short("a\0b", 3);
  const KelUnicodeString Long("a\0bcdefghijklmnopqrstuvwxyz", 27);
  EXPECT_EQ(Short.GetLengthInByte(), 3u);
  EXPECT_EQ(Long.GetLengthInByte(), 27u);
  EXPECT_EQ(Short.View(), std::string_view("a\0b", 3));
  EXPECT_NE(Short, KelUnicodeString("a"));
}

TEST(KelUnicodeString, AppendingItselfOrAPartOfItselfDoublesTheText)
{
  KelUnicodeString Short("abc");
  Short += Short;
  EXPECT_EQ(Short, "abcabc");
  KelUnicodeString Growing("0123456789");
  Growing += Growing;  // from the object's own bytes into a heap block
  EXPECT_EQ(Growing, "01234567890123456789");
  Growing += Growing;  // from one heap block into a larger one
  EXPECT_EQ(Growing, "0123456789012345678901234567890123456789");
  Growing.AppendBytes(Growing.ConvertToChar() + 30, 10);
  EXPECT_EQ(Growing, "01234567890123456789012345678901234567890123456789");
}

TEST(KelUnicodeString, AssigningAPartOfItselfKeepsThoseBytes)
{
  KelUnicodeString Text("a text longer than the short limit");
  Text = Text.ConvertToChar() + 2;
  EXPECT_EQ(Text, "text longer than the short limit");
  Text = Text.ConvertToChar() + 25;
  EXPECT_EQ(Text, "t limit");
}

TEST(KelUnicodeString, ClearEmptiesAndALongTextRefillsInItsRoom)
{
  KelUnicodeString Text("a text longer than the short limit");
  const char* pRoom = Text.ConvertToChar();
  Text.Clear();
  EXPECT_TRUE(Text.IsEmpty());
  EXPECT_STREQ(Text.ConvertToChar(), "");
  Text.AppendBytes("another text of some length", 27);
  EXPECT_EQ(Text.ConvertToChar(), pRoom);
  EXPECT_EQ(Text, "another text of some length");
}

TEST(KelUnicodeString, MovingTakesTheTextAndLeavesTheSourceEmpty)
{
  KelUnicodeString Long("a text longer than the short limit");
  const char* pRoom = Long.ConvertToChar();
  KelUnicodeString Moved(std::move(Long));
  EXPECT_EQ(Moved.ConvertToChar(), pRoom);
  EXPECT_TRUE(Long.IsEmpty());  // NOLINT(bugprone-use-after-move): the state after a move is part of the contract
  KelUnicodeString Short("short");
  Moved = std::move(Short);
  EXPECT_EQ(Moved, "short");
  EXPECT_TRUE(Short.IsEmpty());  // NOLINT(bugprone-use-after-move)
}

TEST(KelUnicodeString, CopiesAreIndependent)
{
  KelUnicodeString Original("a text longer than the short limit");
  KelUnicodeString Copy(Original);
  Copy.ToLower();
  Original += "!";
  EXPECT_EQ(Copy, "a text longer than the short limit");
  EXPECT_EQ(Original, "a text longer than the short limit!");
  KelUnicodeString Short("Short");
  Short = Original;
  EXPECT_EQ(Short, Original);
  Original = KelUnicodeString("x");
  EXPECT_EQ(Short, "a text longer than the short limit!");
}

TEST(KelUnicodeString, ATextPastTheLongestIsAnAllocationFailure)
{
  KelUnicodeString Text("abc");
  EXPECT_THROW(Text.AppendBytes("x", KelUnicodeString::MaxBytes), std::bad_alloc);
  EXPECT_EQ(Text, "abc");  // unchanged
}
