#include "store/together.h"

#include <array>
#include <ctime>

#include "base/words.h"

std::string since(int seconds) {
  const std::time_t then = std::time(nullptr) - seconds;
  std::tm local{};
  localtime_r(&then, &local);
  std::array<char, 8> text{};
  std::strftime(text.data(), text.size(), "%H:%M", &local);
  return text.data();
}

std::string inHandWords(const Other& other, const std::string& what) {
  return words("{who} Has {what} In Hand Since {time}", "who", other.who, "what", what, "time",
               since(other.seconds));
}

std::string holdWords(const Other& other) {
  const char* const wish = other.hold == Hold::Shuts    ? english("Open These Books When It Has Ended")
                           : other.hold == Hold::Closes ? english("Saved When It Has Ended")
                           : other.hold == Hold::Asks   ? english("Finish What You Have In Hand")
                                                        : english("Finish And Close This Company");
  return other.who + " " + holdFact(other) + " :: " + words(wish);
}

std::string holdFact(const Other& other) {
  return words(*other.hold >= Hold::Closes ? english("Is At {what} Since {time}")
                                           : english("Waits For {what} Since {time}"),
               "what", words(other.book), "time", since(other.seconds));
}
