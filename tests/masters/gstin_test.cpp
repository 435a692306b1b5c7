#include "masters/gstin.h"

#include <gtest/gtest.h>

namespace {

TEST(Gstin, FaultsAreToldApart) {
  struct Case {
    const char* number;
    GstinFault fault;
  };
  // The first two are numbers that the tax department's own papers print as examples.
  const Case cases[] = {
      {"27AAPFU0939F1ZV",      GstinFault::None      },
      {"29AAGCB7383J1Z4",      GstinFault::None      },
      {"27aapfu0939f1zv",      GstinFault::None      },
      {"27AAPFU0939F1ZW",      GstinFault::CheckDigit}, // last character
      {"27AAPFU0993F1ZV",      GstinFault::CheckDigit}, // two digits changed places
      {"24AAPFU0939F1ZV",      GstinFault::CheckDigit}, // another state
      {"27AAPFU0939F0ZV",      GstinFault::Pattern   }, // registrations count from 1
      {"27AAPFU0939F1XV",      GstinFault::Pattern   },
      {"2AAAPFU0939F1ZV",      GstinFault::Pattern   },
      {"27AAPF10939F1ZV",      GstinFault::Pattern   },
      {"27AAPFU0939F1Z",       GstinFault::Pattern   },
      {"27AAPFU0939F1ZVV",     GstinFault::Pattern   },
      {"27AAPFU0939F1Z\u0905", GstinFault::Pattern   },
      {"",                     GstinFault::Pattern   },
  };
  for (const Case& c : cases) EXPECT_EQ(gstinFault(c.number), c.fault) << c.number;
  EXPECT_EQ(gstinParts("27AAPFU0939F1ZV").pan, "AAPFU0939F");
  EXPECT_EQ(gstinParts("27AAPFU0939").pan, "");
}

}  // namespace
