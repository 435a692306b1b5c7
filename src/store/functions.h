#pragma once

struct sqlite3;

// The functions that statements rely on, registered on one connection: SHOWN(value, pattern) for
// numbers ("0.00") and dates ("dd/MM/yy"), ROUNDED(number, places), VAL, STR, LEN, ISDATE and NUMTEXT.
// No engine has functions of these names by itself: docs/statements.md. FORMAT and ROUND of two values are
// older names of the first two, DATEDIFF('d', from, to) is of older statements.
void registerFunctions(sqlite3* connection);
