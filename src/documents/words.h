#pragma once

#include <string>

// An amount spelt out in the Indian way for printed papers, in upper case:
// 1234567.50 is "TWELVE LAKH THIRTY FOUR THOUSAND FIVE HUNDRED SIXTY SEVEN AND FIFTY PAISE
// ONLY". Papers carry these words to the letter, with their spellings (NINTEEN, FOURTY,
// NINTY), the two blanks before ONLY after a whole group, and ".." for a zero amount; a shop that
// wants others gives them in its catalogue (base/words.h), word by word.
std::string AmountInWords(double amount);

// Words of a whole number from 1 to 99; empty for anything else.
std::string NumberWords(double number);
