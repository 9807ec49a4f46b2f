// Texts: trimming, case, comparison, splitting, encoding, cutting, UTF-8.
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/LetterCase.h"
#include "platform/runtime/Text.h"
#include "platform/runtime/Utf8.h"

namespace pixorra {
namespace {

TEST(Trim, TakesBlanksAtBothEndsAndNothingElse) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("    "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("\u00A0a"), "\u00A0a");
}

using Parts = std::vector<std::string_view>;

TEST(Split, HasOnePartMoreThanSeparators) {
  EXPECT_EQ(Split("a;bc;d", ';'), (Parts{"a", "bc", "d"}));
  EXPECT_EQ(Split("abc", ';'), (Parts{"abc"}));
  EXPECT_EQ(Split("", ';'), (Parts{""}));
  EXPECT_EQ(Split(";a;;", ';'), (Parts{"", "a", "", ""}));
}

TEST(Lines, EndAtLineFeedsAndTheLastOneMayLackIt) {
  EXPECT_EQ(Lines("a\nb"), (Parts{"a", "b"}));
  EXPECT_EQ(Lines("a\nb\n"), (Parts{"a", "b"}));
  EXPECT_EQ(Lines("a\n\n"), (Parts{"a", ""}));
  EXPECT_EQ(Lines("\n"), (Parts{""}));
  EXPECT_EQ(Lines(""), Parts());
}

TEST(PercentEncoded, LeavesWhatIsPlainAndWritesTheBytesOfAllElse) {
  EXPECT_EQ(PercentEncoded("aZ9 /%\n\xFF", IsAsciiLetterOrDigit), "aZ9%20%2F%25%0A%FF");
  EXPECT_EQ(PercentEncoded("é.", [](char c) { return c == '.'; }), "%C3%A9.");
  EXPECT_EQ(PercentEncoded("", IsAsciiLetterOrDigit), "");
}

TEST(PercentDecoded, TakesDigitsOfEitherCase) {
  EXPECT_EQ(PercentDecoded("a%20b%c3%A9"), "a bé");
}

TEST(PercentDecoded, LeavesAPercentSignWithoutTwoDigitsAfterIt) {
  EXPECT_EQ(PercentDecoded("%"), "%");
  EXPECT_EQ(PercentDecoded("5%2"), "5%2");
  EXPECT_EQ(PercentDecoded("%G0%0G%%41"), "%G0%0G%A");
}

TEST(PercentDecoded, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(PercentDecoded(PercentEncoded(all, IsAsciiLetterOrDigit)), all);
}

TEST(LetterCase, MapsEachScriptBothWays) {
  EXPECT_EQ(UCase("img_0012.jpg"), "IMG_0012.JPG");
  EXPECT_EQ(LCase("IMG_0012.JPG"), "img_0012.jpg");
  EXPECT_EQ(UCase("äöüéñøþÿ"), "ÄÖÜÉÑØÞŸ");
  EXPECT_EQ(LCase("ÄÖÜÉÑØÞŸ"), "äöüéñøþÿ");
  EXPECT_EQ(UCase("āčďęğĺłńőřśťůžơưșțế"), "ĀČĎĘĞĹŁŃŐŘŚŤŮŽƠƯȘȚẾ");
  EXPECT_EQ(LCase("ĀČĎĘĞĹŁŃŐŘŚŤŮŽƠƯȘȚẾ"), "āčďęğĺłńőřśťůžơưșțế");
  EXPECT_EQ(UCase("αβγάέήίόύώϊ"), "ΑΒΓΆΈΉΊΌΎΏΪ");
  EXPECT_EQ(LCase("ΑΒΓΆΈΉΊΌΎΏΪ"), "αβγάέήίόύώϊ");
  EXPECT_EQ(UCase("привет ёїґ"), "ПРИВЕТ ЁЇҐ");
  EXPECT_EQ(LCase("ПРИВЕТ ЁЇҐ"), "привет ёїґ");
}

TEST(LetterCase, LeavesWhatHasNoCase) {
  EXPECT_EQ(UCase("×÷ß写真😀[`{"), "×÷ß写真😀[`{");
  EXPECT_EQ(LCase("×÷写真😀@[`"), "×÷写真😀@[`");
}

TEST(LetterCase, LeavesLettersThatWouldNotComeBack) {
  EXPECT_EQ(UCase("ıſµ"), "ıſµ");
  EXPECT_EQ(LCase("İ"), "İ");
}

TEST(LetterCase, BothSmallSigmasHaveOneCapital) {
  EXPECT_EQ(UCase("σς"), "ΣΣ");
  EXPECT_EQ(LCase("Σ"), "σ");
}

TEST(LetterCase, UpperAndLowerUndoEachOther) {
  for (char32_t code = 0; code < 0x11000; ++code) {
    if (LowerCase(code) != code) {
      EXPECT_EQ(UpperCase(LowerCase(code)), code) << static_cast<unsigned>(code);
    }
    if (UpperCase(code) != code && code != 0x3C2) {
      EXPECT_EQ(LowerCase(UpperCase(code)), code) << static_cast<unsigned>(code);
    }
  }
}

TEST(LetterCase, ALetterInItsCaseStaysAsItIs) {
  for (char32_t code = 0; code < 0x11000; ++code) {
    EXPECT_EQ(UpperCase(UpperCase(code)), UpperCase(code)) << static_cast<unsigned>(code);
    EXPECT_EQ(LowerCase(LowerCase(code)), LowerCase(code)) << static_cast<unsigned>(code);
  }
}

TEST(LetterCase, LeavesBytesThatAreNoUtf8) {
  EXPECT_EQ(UCase("a\xFF\xC3z"), "A\xFF\xC3Z");
  EXPECT_EQ(LCase("A\x80\xE2\x82Z"), "a\x80\xE2\x82z");
}

TEST(EqualIgnoringCase, ComparesWholeTexts) {
  EXPECT_TRUE(EqualIgnoringCase("C:\\Übung", "c:\\üBUNG"));
  EXPECT_TRUE(EqualIgnoringCase("", ""));
  EXPECT_FALSE(EqualIgnoringCase("photo", "photos"));
  EXPECT_FALSE(EqualIgnoringCase("photos", "photo"));
  EXPECT_FALSE(EqualIgnoringCase("é", "e"));
  EXPECT_FALSE(EqualIgnoringCase("i", "ı"));
  EXPECT_FALSE(EqualIgnoringCase("\xFE", "\xFF"));
}

TEST(NameLess, OrdersAsAFileListShows) {
  std::vector<std::string> names = {"b.jpg", "B.JPG", "a10.jpg", "A2.jpg", "_x.jpg", "ä.jpg", "C.jpg"};
  std::sort(names.begin(), names.end(), NameLess);
  const std::vector<std::string> expected = {"a10.jpg", "A2.jpg", "B.JPG", "b.jpg", "C.jpg", "_x.jpg", "ä.jpg"};
  EXPECT_EQ(names, expected);
}

// Names alike in the first bytes of a character, or in whole ones, are told apart by what they differ in.
TEST(NameLess, NamesThatBeginAlikeAreOrderedByCharacters) {
  EXPECT_TRUE(NameLess("IMG_0009.jpg", "img_0010.jpg"));
  EXPECT_TRUE(NameLess("a\u00e8", "a\u00e9"));
  EXPECT_FALSE(NameLess("a\u00e9", "a\u00e8"));
  EXPECT_TRUE(NameLess("\u00e8a", "\u00c9a")) << "the capital of the first comes ahead";
  EXPECT_FALSE(NameLess("\u00c9a", "\u00e8a"));
  EXPECT_TRUE(NameLess("a\u5199", "a\u519a"));
  EXPECT_TRUE(NameLess("a\u00e9", "a\xc3"));
  EXPECT_TRUE(EqualIgnoringCase("x\u00e9\u00e9", "x\u00c9\u00e9"));
}

TEST(NameLess, TellsNamesApartThatDifferByCaseOnly) {
  EXPECT_TRUE(NameLess("A", "a"));
  EXPECT_FALSE(NameLess("a", "A"));
  EXPECT_FALSE(NameLess("a", "a"));
  EXPECT_TRUE(NameLess("a", "ab"));
  EXPECT_TRUE(NameLess("\xFE", "\xFF"));
}

TEST(CutToBytes, KeepsWhatFits) {
  EXPECT_EQ(CutToBytes("abc", 3), "abc");
  EXPECT_EQ(CutToBytes("abc", 2), "ab");
  EXPECT_EQ(CutToBytes("abc", 0), "");
  EXPECT_EQ(CutToBytes("", 5), "");
}

TEST(CutToBytes, NeverSplitsACharacter) {
  EXPECT_EQ(CutToBytes("aé", 2), "a");
  EXPECT_EQ(CutToBytes("aéb", 3), "aé");
  EXPECT_EQ(CutToBytes("写真", 5), "写");
  EXPECT_EQ(CutToBytes("写真", 2), "");
  EXPECT_EQ(CutToBytes("x😀", 4), "x");
  EXPECT_EQ(CutToBytes("x😀y", 5), "x😀");
}

TEST(CutToBytes, CutsStrayBytesWhereTheyStand) {
  EXPECT_EQ(CutToBytes("\x80\x80\x80\x80\x80\x80", 5), "\x80\x80\x80\x80\x80");
}

TEST(CharacterCount, CountsCharactersAndNotBytes) {
  EXPECT_EQ(CharacterCount(""), 0U);
  EXPECT_EQ(CharacterCount("aé写😀"), 4U);
  EXPECT_EQ(CharacterCount("a\xFF\xC3"), 3U);
}

TEST(IsValidUtf8, TakesWellFormedTexts) {
  EXPECT_TRUE(IsValidUtf8(""));
  EXPECT_TRUE(IsValidUtf8("aé写😀"));
  EXPECT_TRUE(IsValidUtf8("\xED\x9F\xBF\xEE\x80\x80\xF4\x8F\xBF\xBF"));
}

TEST(IsValidUtf8, RefusesWhatIsMalformed) {
  EXPECT_FALSE(IsValidUtf8("\x80")) << "a continuation by itself";
  EXPECT_FALSE(IsValidUtf8("\xC3")) << "cut short";
  EXPECT_FALSE(IsValidUtf8("\xC3(")) << "continued by a letter";
  EXPECT_FALSE(IsValidUtf8("\xC0\xAF")) << "overlong, two bytes";
  EXPECT_FALSE(IsValidUtf8("\xE0\x80\xAF")) << "overlong, three bytes";
  EXPECT_FALSE(IsValidUtf8("\xF0\x80\x80\xAF")) << "overlong, four bytes";
  EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80")) << "a surrogate";
  EXPECT_FALSE(IsValidUtf8("\xF4\x90\x80\x80")) << "above the last character";
  EXPECT_FALSE(IsValidUtf8("\xFF"));
}

TEST(Utf8, EveryCharacterComesBackAsItWent) {
  for (char32_t code = 0; code < 0x110000; code += code < 0x3000 ? 1 : 0x101) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    std::string text;
    AppendCharacter(text, code);
    const Utf8Character read = CharacterAt(text, 0);
    ASSERT_EQ(read.Code, code);
    ASSERT_EQ(read.Bytes, text.size());
  }
}

}  // namespace
}  // namespace pixorra
