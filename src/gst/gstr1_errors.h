#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "gst/gstr1_checks.h"

// The error file that the portal gives back: the tree of the return with the refused rows alone, each with a
// code and a text. They are told like our own checks, each beside its voucher where it is one.

struct PortalAnswer {
  std::vector<GstFault> faults;
  int unknown = 0;  // rows that name no voucher of the return
};

// Raises std::runtime_error, in words, for a file that is none of this return.
PortalAnswer readPortalErrors(const std::filesystem::path& file, const Gstr1& gstr1);
