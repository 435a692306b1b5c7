#include "store/groups.h"

namespace {

// UNION, so that groups that name one another in a circle end it. 0 is no group, though the topmost ones
// name it.
std::string under(std::string_view column, const std::string& tops) {
  return std::string(column) + " IN (WITH RECURSIVE UNDER(CODE) AS (VALUES " + tops +
         " UNION SELECT GRP.GROUP_CD FROM UNDER JOIN GRP ON GRP.SUB_GROUP = UNDER.CODE AND UNDER.CODE <> 0) "
         "SELECT CODE FROM "
         "UNDER)";
}

}  // namespace

std::string underGroups(std::string_view column, std::initializer_list<int> groups) {
  std::string tops;
  for (const int group : groups) tops += (tops.empty() ? "(" : ", (") + std::to_string(group) + ")";
  return under(column, tops);
}

std::string underGroupAsked(std::string_view column) { return under(column, "(VAL(?))"); }
