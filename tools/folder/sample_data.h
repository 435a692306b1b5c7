#pragma once

#include <filesystem>

#include "base/date.h"

// The databases of a folder that is handed out: the catalogue comp.mdb with one invented
// company in the financial year of `now`, that year's books filled so that a bill can be
// made at once, and the templates of new company-years. A database that stands is kept.
void makeSampleFolder(const std::filesystem::path& folder, const Moment& now);
