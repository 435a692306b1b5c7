#pragma once

#include <string>

// Why a note is made against a bill. ORIGINAL keeps the number.

inline constexpr int kNoteReasons = 5;  // from 1
// Its words; empty for what is none.
std::string noteReason(int reason);
// Whether goods usually move with it: when they come back, and where another quantity was billed than went.
bool reasonMovesGoods(int reason);
