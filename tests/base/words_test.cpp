#include "base/words.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/temp_folder.h"

namespace {

constexpr const char* kGujarati = R"(msgid ""
msgstr "Content-Type: text/plain; charset=UTF-8\n"
msgid "&Save"
msgstr "સાચવો"
msgid "Entry No {number} Of {party} Saved"
msgstr "{party} : નોંધ {number} સાચવી"
msgid "Two\nLines"
msgstr "બે\nલીટી"
msgid "{count} Bills"
msgstr "{wrong} બિલ"
)";

// A program folder with one catalogue.
class WordsTest : public ::testing::Test {
 protected:
  WordsTest() {
    const std::string place = (folder_ / "locale/gu/LC_MESSAGES").string(),
                      source = (folder_ / "gu.po").string();
    std::filesystem::create_directories(place);
    std::ofstream(source) << kGujarati;
    EXPECT_EQ(std::system(("msgfmt " + source + " -o " + place + "/mirav.mo").c_str()), 0);
  }
  ~WordsTest() override { openWords("/nowhere", "gu"); }

  void open(const char* language) { openWords(folder_.path(), language); }

  TempFolder folder_;
};

TEST_F(WordsTest, AreLookedUpByTheirEnglishText) {
  open("gu_IN.UTF-8");
  EXPECT_EQ(words("&Save"), "સાચવો");
  EXPECT_EQ(words("Two\r\nLines"), "બે\nલીટી");
  EXPECT_EQ(words("Not\r\nThere"), "Not\r\nThere");
  EXPECT_EQ(words(""), "");
}

TEST_F(WordsTest, PutTheirPlacesInAnyOrder) {
  open("hi:gu");
  EXPECT_EQ(words("Entry No {number} Of {party} Saved", "number", "148", "party", "{number}"),
            "{number} : નોંધ 148 સાચવી");
  EXPECT_EQ(words("{count} Bills", "count", "2"), "2 Bills") << "the translation names no such place";
  EXPECT_THROW(words("{count} Bills", "number", "2"), std::logic_error);
}

TEST_F(WordsTest, StayEnglishWithoutACatalogue) {
  for (const char* language : {"hi", "C", "en_IN.UTF-8"}) {
    open(language);
    EXPECT_EQ(words("&Save"), "&Save") << language;
    EXPECT_EQ(words("{a} to {b}", "b", "x", "a", "y"), "y to x");
  }
}

TEST_F(WordsTest, AskTheEnvironmentAndLeaveFiguresAlone) {
  setenv("LANGUAGE", "gu", 1);
  open("");
  EXPECT_EQ(words("&Save"), "સાચવો");
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  EXPECT_STREQ(std::setlocale(LC_TIME, nullptr), "C");
}

}  // namespace
