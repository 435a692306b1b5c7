#pragma once

#include <span>
#include <string>
#include <string_view>

// The functions that statements rely on (docs/statements.md), for a database server: stored functions of each
// books' database, made once over a connection whose sql_mode is
// 'MSSQL,STRICT_ALL_TABLES,NO_BACKSLASH_ESCAPES' (a function keeps the mode of its making). They give what
// those of store/functions give, to the last bit and letter, with these limits:
// - A parameter has one type there, so that a number comes as its shortest text. A text that reads like the
// text
//   of a number with more than 15 digits or with a power ('0.30000000000000004', '1e15') is taken for one by
//   NUMTEXT; a constant with a point (30.0) is a text; LEN counts what came.
// - ROUNDED takes numbers alone and a count of decimals that is not negative.
// - SHOWN takes '0.00', '0', 'dd/MMM/yyyy', 'dd/MM/yyyy', 'dd/MM/yy' and 'yyyy-MM-dd' and refuses others; a
// text
//   of more than 255 letters is an error, save of LEN.
// - Figures below 1e-20 and above 1e48 may differ in their 15th digit, and the server has no negative zero.

struct ServerFunction {
  const char* name;
  const char* create;
};

// Those of the dictionary of functions, and what they call when a value is none of the common ones.
std::span<const ServerFunction> serverFunctions();

// The statement with calls of them written in the server's own words where these give the same for nearly all
// values, in a tenth of the time: a stored function costs one to four microseconds a call.
std::string inServersWords(std::string_view statement);
