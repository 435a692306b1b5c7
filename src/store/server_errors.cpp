#include "store/server_errors.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "base/words.h"

namespace {

using Kind = DatabaseError::Kind;

struct Code {
  unsigned code;
  Kind kind;
  const char* sentence = "";  // empty: that of its kind
};

constexpr const char* kNoAnswer = english(
    "The Server Of These Books Does Not Answer\r\n"
    "Is It On, Is The Network :: Nothing Typed Is Lost, Try Again");
constexpr const char* kCut = english(
    "The Connection To The Server Was Lost\r\n"
    "Nothing Half Is Stored :: What You Typed Stays, Save It Again");
constexpr const char* kCutAsking = english(
    "The Connection To The Server Was Lost\r\n"
    "Nothing Typed Is Lost :: Ask For It Again");
constexpr const char* kFull = english(
    "The Disk Of The Server Is Full\r\n"
    "Nothing Was Stored :: Free Some Space There And Try Again");
constexpr const char* kNoPlace = english(
    "The Server Takes No Further Program Now\r\n"
    "Close One Somewhere, Or Try Again In A Moment");
constexpr const char* kNotWritten = english(
    "The Server Takes Nothing To Store Now\r\n"
    "Nothing Was Stored :: Ask Who Looks After It, Or Try Again Later");
constexpr const char* kOthersWrote = english(
    "Others Were Storing The Same Just Now\r\n"
    "Nothing Was Stored :: Try Again In A Moment");
constexpr const char* kNotClosed = english(
    "The Connection To The Server Could Not Be Made Safe\r\n"
    "Its Keys Stand In server.cnf (ssl-ca ...) :: {detail}");
constexpr const char* kUnknownSignIn = english(
    "The Server Signs This User In By A Way That Is Not Known Here\r\n"
    "{detail}");
constexpr const char* kCommands = english(
    "The Server Of These Books Is Too Old: It Does Not Know What This Program Asks\r\n"
    "{detail}");

// clang-format off
constexpr std::array kCodes{
    // Who asks
    Code{1045, Kind::denied, english("User Or Password Is Not Right\r\nSmall And Capital Letters Count :: Try Again")},
    Code{1698, Kind::denied, english("User Or Password Is Not Right\r\nSmall And Capital Letters Count :: Try Again")},
    Code{1130, Kind::denied, english("The Server Lets Nobody In From This Computer\r\nAsk Who Looks After The Server")},
    Code{1820, Kind::denied, english("The Password Has Run Out\r\nWho Makes Operators Gives A New One :: UTILITIES, Operators")},
    Code{1862, Kind::denied, english("The Password Has Run Out\r\nWho Makes Operators Gives A New One :: UTILITIES, Operators")},
    Code{4151, Kind::denied, english("This User Is Locked\r\nAsk Who Looks After The Server")},
    // What the right is not enough for
    Code{1044, Kind::denied}, Code{1095, Kind::denied}, Code{1142, Kind::denied}, Code{1143, Kind::denied},
    Code{1227, Kind::denied}, Code{1370, Kind::denied}, Code{1396, Kind::constraint}, Code{1410, Kind::denied},
    // Whether it answers
    Code{2002, Kind::lost, kNoAnswer}, Code{2003, Kind::lost, kNoAnswer}, Code{2005, Kind::lost, kNoAnswer},
    Code{2006, Kind::lost, kCut}, Code{2013, Kind::lost, kCut}, Code{2055, Kind::lost, kCut},
    Code{1053, Kind::lost, kCut}, Code{1927, Kind::lost, kCut}, Code{4031, Kind::lost, kCut},
    Code{1047, Kind::lost, english("This Part Of The Cluster Has Lost The Others And Takes Nothing\r\nNothing Typed Is Lost :: Try Again In A Moment")},
    Code{1129, Kind::lost, english("The Server Has Shut This Computer Out After Many Failed Tries\r\nOn The Server: mariadb-admin flush-hosts")},
    Code{2026, Kind::cannotOpen, kNotClosed},
    Code{1251, Kind::cannotOpen, kUnknownSignIn}, Code{2058, Kind::cannotOpen, kUnknownSignIn}, Code{2059, Kind::cannotOpen, kUnknownSignIn},
    Code{1193, Kind::tooOld, kCommands}, Code{1231, Kind::tooOld, kCommands}, Code{1273, Kind::tooOld, kCommands}, Code{1115, Kind::tooOld, kCommands},
    // Others at the same time
    Code{1205, Kind::locked},
    Code{1040, Kind::locked, kNoPlace}, Code{1203, Kind::locked, kNoPlace}, Code{1226, Kind::locked, kNoPlace},
    Code{1213, Kind::again, kOthersWrote}, Code{1020, Kind::again, kOthersWrote}, Code{1180, Kind::again, kOthersWrote},
    Code{1290, Kind::readOnly, kNotWritten}, Code{1792, Kind::readOnly, kNotWritten}, Code{1836, Kind::readOnly, kNotWritten},
    Code{1317, Kind::stopped}, Code{1969, Kind::stopped},
    // What it works with
    Code{1021, Kind::full, kFull}, Code{1114, Kind::full, kFull}, Code{1206, Kind::full},
    Code{1037, Kind::memory}, Code{1038, Kind::memory}, Code{1041, Kind::memory}, Code{2008, Kind::memory},
    Code{1030, Kind::io}, Code{1016, Kind::io}, Code{1024, Kind::io}, Code{1026, Kind::io},
    Code{1034, Kind::damaged}, Code{1035, Kind::damaged}, Code{1194, Kind::damaged}, Code{1195, Kind::damaged}, Code{1712, Kind::damaged},
    Code{1049, Kind::missing},
    // What the columns take
    Code{1007, Kind::constraint}, Code{1048, Kind::constraint}, Code{1062, Kind::constraint}, Code{1264, Kind::constraint},
    Code{1265, Kind::constraint}, Code{1292, Kind::constraint}, Code{1364, Kind::constraint}, Code{1366, Kind::constraint},
    Code{1406, Kind::constraint}, Code{4025, Kind::constraint},
};
// clang-format on

const Code* known(unsigned code) {
  const auto* const found = std::ranges::find(kCodes, code, &Code::code);
  return found == kCodes.end() ? nullptr : found;
}

bool beginsWith(std::string_view statement, std::initializer_list<std::string_view> verbs) {
  const std::string text = ltrim(statement);
  return std::ranges::any_of(verbs, [&](std::string_view verb) { return startsWithNoCase(text, verb); });
}

// Of the three rights each lets do more with the books; the statement tells which one is missing.
std::string refusedRight(const std::string& name, std::string_view statement) {
  // What is sent as one changes something, but for what makes operators.
  const bool together =
      beginsWith(statement, {"BEGIN"}) && !beginsWith(statement, {"BEGIN NOT ATOMIC EXECUTE"});
  const bool changes = together || beginsWith(statement, {"INSERT", "UPDATE", "DELETE", "REPLACE"});
  if (changes && (sameText(name, "comp") || lower(statement).find("compny") != std::string::npos))
    return words(
        "Your Right Does Not Reach As Far As The List Of Companies\r\n"
        "Nothing Was Stored :: Who Makes Operators Gives The Right, Under UTILITIES, Operators");
  if (changes)
    return words(
        "You May Look But Not Change {file}\r\n"
        "Nothing Was Stored :: Who Makes Operators Gives The Right, Under UTILITIES, Operators",
        "file", name);
  if (beginsWith(statement, {"CREATE", "DROP", "ALTER", "RENAME", "TRUNCATE", "GRANT", "REVOKE", "BEGIN"}))
    return words(
        "Your Right Does Not Reach As Far As This\r\n"
        "Nothing Was Done :: Who Makes Operators Gives The Right, Under UTILITIES, Operators");
  return words(
      "You Have No Right To See {file}\r\n"
      "Who Makes Operators Gives It, Under UTILITIES, Operators",
      "file", name);
}

}  // namespace

Kind kindOfServer(unsigned code) {
  const Code* const found = known(code);
  return found ? found->kind : Kind::other;
}

DatabaseError serverError(unsigned code, const std::string& text, const std::string& name,
                          std::string_view statement) {
  using Told = DatabaseError::Told;
  // What the disk said of a table, in the number of another error.
  if (code == 1030 && text.find("error 28 ") != std::string::npos) code = 1021;
  const Code* const found = known(code);
  const Kind kind = kindOfServer(code);
  const int number = static_cast<int>(code);
  if (found && *found->sentence)
    return {kind, Told{words(found->sentence, "detail", text)}, std::string(statement), number};
  if (kind == Kind::denied)
    return {kind, Told{refusedRight(name, statement)}, std::string(statement), number};
  return {kind, name, text, std::string(statement), number};
}

DatabaseError whileAsking(const DatabaseError& error) {
  const Code* const found = known(static_cast<unsigned>(error.code()));
  if (!found || found->sentence != kCut) return error;
  return {error.kind(), DatabaseError::Told{words(kCutAsking)}, error.statement(), error.code()};
}
