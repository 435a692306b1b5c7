#include "base/states.h"

#include <algorithm>
#include <array>

#include "base/words.h"

namespace {

constexpr std::array kStates = {
    State{1,  english("Jammu and Kashmir")                       },
    State{2,  english("Himachal Pradesh")                        },
    State{3,  english("Punjab")                                  },
    State{4,  english("Chandigarh")                              },
    State{5,  english("Uttarakhand")                             },
    State{6,  english("Haryana")                                 },
    State{7,  english("Delhi")                                   },
    State{8,  english("Rajasthan")                               },
    State{9,  english("Uttar Pradesh")                           },
    State{10, english("Bihar")                                   },
    State{11, english("Sikkim")                                  },
    State{12, english("Arunachal Pradesh")                       },
    State{13, english("Nagaland")                                },
    State{14, english("Manipur")                                 },
    State{15, english("Mizoram")                                 },
    State{16, english("Tripura")                                 },
    State{17, english("Meghalaya")                               },
    State{18, english("Assam")                                   },
    State{19, english("West Bengal")                             },
    State{20, english("Jharkhand")                               },
    State{21, english("Odisha")                                  },
    State{22, english("Chhattisgarh")                            },
    State{23, english("Madhya Pradesh")                          },
    State{24, english("Gujarat")                                 },
    State{25, english("Daman and Diu")                           },
    State{26, english("Dadra and Nagar Haveli and Daman and Diu")},
    State{27, english("Maharashtra")                             },
    State{28, english("Andhra Pradesh")                          },
    State{29, english("Karnataka")                               },
    State{30, english("Goa")                                     },
    State{31, english("Lakshadweep")                             },
    State{32, english("Kerala")                                  },
    State{33, english("Tamil Nadu")                              },
    State{34, english("Puducherry")                              },
    State{35, english("Andaman and Nicobar Islands")             },
    State{36, english("Telangana")                               },
    State{37, english("Andhra Pradesh")                          },
    State{38, english("Ladakh")                                  },
    State{96, english("Foreign Country")                         },
    State{97, english("Other Territory")                         },
};

}  // namespace

std::span<const State> states() { return kStates; }

std::string_view stateName(int code) {
  const auto* const found = std::ranges::find(kStates, code, &State::code);
  return found == kStates.end() ? "" : found->name;
}
