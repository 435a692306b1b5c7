#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// The one door for words. What a person reads is looked up by its English text on its way to the
// screen or the paper (GNU gettext, domain "mirav"); without a catalogue it stays English.
//
// Words are captions, labels, titles, hints, tips and messages; data (names, narrations, figures,
// dates) never pass, so that a party called "Date" stays "Date". Records of screens keep English
// and the host looks up what it draws (platform/shown.h says what of a control is words). A text
// that a handler makes for a label, a cell, a panel or a paper passes words() where it is made.
// Nothing that is stored in a database is looked up.

// Takes the catalogue FOLDER/locale/LANGUAGE/LC_MESSAGES/mirav.mo. A language is a name or several
// in their order ("gu:hi"); an empty one asks the environment (LANGUAGE, LC_ALL, LC_MESSAGES,
// LANG). Figures and dates keep their form in every language. Before any other thread.
void openWords(const std::string& folder, const std::string& language = {});

std::string words(std::string_view english);

// A text with figures or names in it: words("Entry No {number} Saved", "number", "148"), names and
// values in turn; a value is data, or words that have been looked up. The pattern is looked up whole,
// so that a translation may order its places anew; one that asks for a place that the English pattern
// lacks counts as missing.
std::string filledWords(std::string_view pattern, std::initializer_list<std::string_view> namesAndValues);
template <class Value, class... More>
std::string words(std::string_view pattern, std::string_view name, const Value& value, const More&... more) {
  static_assert(sizeof...(More) % 2 == 0, "a name goes with each value");
  return filledWords(pattern, {name, std::string_view(value), std::string_view(more)...});
}

// Marks a text in a table or constant that is looked up later, for those who collect the texts.
constexpr const char* english(const char* text) { return text; }
