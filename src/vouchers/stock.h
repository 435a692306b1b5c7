#pragma once

#include "store/database.h"

// ITEMDTL.CL_STK: what an item and unit opened with, and what bills brought and took since, notes among
// them where goods move with them. A bill leaves it as it is; posting and openings bring it up. Challans move
// nothing here, since a bill follows them.
// Categories of "No Stock" and the item of free texts keep what they hold.
void RebuildStock(Database& db);
