#pragma once

struct sqlite3;

// The functions that statements rely on, registered on one connection: FORMAT(value, pattern)
// for numbers ("0.00") and dates ("dd/MM/yy"), VAL, STR, LEN, DATEDIFF('d', from, to), ISDATE
// and NUMTEXT. FORMAT with another count of arguments stays the built-in one.
void registerFunctions(sqlite3* connection);
