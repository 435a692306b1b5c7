#include "platform/keys.h"

#include <gtest/gtest.h>

#include "platform/utf8.h"

TEST(Keys, NamesAreReadWithoutRegardToCaseAndSaidAgain) {
  for (const char* name : {"Enter", "Shift+Tab", "Ctrl+L", "Alt+P", "Ctrl+F2", "PgDn", "F12", "Backspace"}) {
    const auto key = keyByName(name);
    ASSERT_TRUE(key) << name;
    EXPECT_EQ(nameOf(*key), name);
  }
  EXPECT_EQ(keyByName("ctrl+l"), Key::Ctrl('L'));
  EXPECT_FALSE(keyByName("Retrun"));
  EXPECT_FALSE(keyByName("Hyper+A"));
}

TEST(Keys, FiltersByMode) {
  struct Case {
    int mode;
    std::u32string typed, taken;
  };
  for (const Case& c : {
           Case{0, U"12a.-+ e5",    U"12.-5"       },
           Case{1, U"ab9+.( )-/&'", U"AB9+.( )-/&'"},
           Case{1, U"\t\x01!~|",    U""            },
           Case{1, U"ગુ½",     U"ગુ½"    },
           Case{0, U"૧",          U""            }
  }) {
    std::u32string taken;
    for (const char32_t ch : c.typed)
      if (const char32_t kept = filtered(c.mode == 0 ? KeyClass::Number : KeyClass::Text, ch)) taken += kept;
    EXPECT_EQ(utf8::encode(taken), utf8::encode(c.taken));
  }
}

TEST(Utf8, DecodesWhatItEncodedAndMarksBrokenBytes) {
  const std::string text = "Aગુજ₹𝄞";
  EXPECT_EQ(utf8::encode(utf8::decode(text)), text);
  EXPECT_EQ(utf8::length(text), 6u);
  EXPECT_EQ(utf8::decode("a\xFF\xE2\x82z"), U"a\uFFFD\uFFFDz");
}
