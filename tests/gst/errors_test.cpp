#include <gtest/gtest.h>

#include <fstream>

#include "gst/gstr1_errors.h"
#include "support/temp_folder.h"

namespace {

// A return of one bill, and an answer to it in a file.
class PortalErrors : public testing::Test {
 protected:
  PortalErrors() {
    auto shop = std::make_shared<TaxShop>();
    shop->gstin = "27ZZZCS0001A1ZM";
    gstr1_.shop = shop;
    gstr1_.period = returnPeriod("102026");
    party_ = {.code = "A00007", .name = "GIRNAR", .gstin = "29ZZZPC0003C1Z1"};
    gstr1_.documents.push_back({
        {.kind = &saleKind(), .voucher = 7, .number = "A/7", .party = &party_},
        Gstr1Section::B2b
    });
  }
  PortalAnswer read(const std::string& text) {
    std::ofstream(folder_ / "error.json") << text;
    return readPortalErrors(folder_ / "error.json", gstr1_);
  }
  std::string refusal(const std::string& text) {
    try {
      read(text);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }

  TempFolder folder_;
  TaxParty party_;
  Gstr1 gstr1_;
};

constexpr const char* kHead = R"({"gstin":"27ZZZCS0001A1ZM","fp":"102026")";

TEST_F(PortalErrors, StandBesideTheirVouchers) {
  const PortalAnswer answer = read(
      std::string(kHead) +
      R"(,"b2b":[{"ctin":"29ZZZPC0003C1Z1","error_msg":"of the group","inv":[)"
      R"({"inum":"a/7","error_cd":"RET191113","error_msg":"Invalid ctin"},{"inum":"A/8","val":"text"}]}],)"
      R"("hsn":{"error_cd":"RET191349","hsn_b2b":[{"hsn_sc":"12","error_msg":7}]},"cdnr":{},"b2cl":[7]})");
  ASSERT_EQ(answer.faults.size(), 4U);
  EXPECT_EQ(answer.faults[0].kind, &saleKind());
  EXPECT_EQ(answer.faults[0].voucher, 7);
  EXPECT_EQ(answer.faults[0].party, "A00007");
  EXPECT_EQ(answer.faults[0].cure, "RET191113 Invalid ctin");
  EXPECT_EQ(answer.faults[1].number + answer.faults[1].cure, "A/8of the group");
  EXPECT_EQ(answer.faults[1].kind, nullptr);
  EXPECT_EQ(answer.unknown, 1);
  EXPECT_EQ(answer.faults[2].number + answer.faults[2].cure, "127");
  EXPECT_EQ(answer.faults[3].field + answer.faults[3].cure, "hsnRET191349");
}

TEST_F(PortalErrors, WhatIsNoneOfThisReturnIsRefusedInWords) {
  EXPECT_EQ(refusal(R"({"gstin":"29ZZZPC0003C1Z1","fp":"102026"})"),
            "This file is for 29ZZZPC0003C1Z1, not for us");
  EXPECT_EQ(refusal(R"({"gstin":"27ZZZCS0001A1ZM","fp":"092026"})"),
            "This file is for 092026, the return for 102026");
  for (const char* other : {"[]", "7", "null", "{}", R"({"gstin":{},"fp":[]})", R"({"error_report":9})"})
    EXPECT_EQ(refusal(other), "This is no error file of GSTR-1") << other;
  for (const std::string& broken : {std::string(kHead), std::string(), std::string("PK\x03\x04\0\xff", 6)})
    EXPECT_EQ(refusal(broken), "error.json: It is no JSON file, or cut short");
  EXPECT_EQ(
      refusal(std::string(kHead) + ",\"b2b\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}"),
      "error.json: It is no file of the portal");
  std::filesystem::resize_file(folder_ / "error.json", 100'000'000);
  EXPECT_THROW(readPortalErrors(folder_ / "error.json", gstr1_), std::runtime_error);
  EXPECT_THROW(readPortalErrors(folder_ / "none.json", gstr1_), std::runtime_error);
}

}  // namespace
