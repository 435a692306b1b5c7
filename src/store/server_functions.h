#pragma once

#include <span>
#include <string>
#include <string_view>

// The functions that statements rely on (docs/statements.md) as stored functions of each books' database,
// made over a connection with sql_mode 'MSSQL,STRICT_ALL_TABLES,NO_BACKSLASH_ESCAPES' (a function keeps the
// mode of its making). They give what those of store/functions give, to the last bit and letter, but:
// - A number comes to most of them as its shortest text, for a parameter has one type. So NUMTEXT takes
//   a text like '0.30000000000000004' or '1e15' for a number and a constant 30.0 for a text, and LEN counts
//   what came.
// - ROUNDED takes numbers alone and a count of decimals that is not negative.
// - SHOWN refuses patterns other than those of docs/statements.md. Only LEN takes texts of over 255 letters.
// - Figures below 1e-20 and above 1e48 may differ in their 15th digit; the server has no negative zero.

struct ServerFunction {
  const char* name;
  const char* create;
};

// Those of statements, and what these call for values that are none of the common ones.
std::span<const ServerFunction> serverFunctions();

// The statement with calls of them written in the server's own words where these give the same for nearly all
// values, in a tenth of the time: a stored function costs one to four microseconds a call.
std::string inServersWords(std::string_view statement);
