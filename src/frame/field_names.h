#pragma once

#include "platform/screen.h"

// What fields are called, on all screens and in scripts. The same thing bears the same name
// wherever it stands; a screen's table of controls says which control it is there, what its label
// says and in which column it is kept.

// clang-format off
namespace fields {

// Head of a voucher
inline constexpr FieldName kNumber{"number"};
inline constexpr FieldName kDate{"date"};
inline constexpr FieldName kBook{"book"};
inline constexpr FieldName kParty{"party"};
inline constexpr FieldName kPartyName{"party_name"};
inline constexpr FieldName kPartyFacts{"party_facts"};      // address, balance, phone
inline constexpr FieldName kPartyBalance{"party_balance"};
inline constexpr FieldName kShipTo{"ship_to"};
inline constexpr FieldName kShipToName{"ship_to_name"};
inline constexpr FieldName kBillType{"bill_type"};
inline constexpr FieldName kBillNumber{"bill_no"};
inline constexpr FieldName kPartyDate{"party_date"};        // that the party gave its bill
inline constexpr FieldName kChallanType{"challan_type"};
inline constexpr FieldName kChallanNumber{"challan_no"};
inline constexpr FieldName kOrderNumber{"order_no"};
inline constexpr FieldName kReference{"reference"};
inline constexpr FieldName kYourReference{"your_reference"};
inline constexpr FieldName kAttention{"attention"};
inline constexpr FieldName kSubject{"subject"};
inline constexpr FieldName kOriginalBill{"original_bill"};  // that a note is made against
inline constexpr FieldName kOriginalDate{"original_date"};
inline constexpr FieldName kReason{"reason"};
inline constexpr FieldName kReasonName{"reason_name"};
inline constexpr FieldName kGoods{"goods"};                 // 1: they move with a note
inline constexpr FieldName kGoodsName{"goods_name"};
inline constexpr FieldName kSupply{"supply"};               // the marks of a bill, in words
inline constexpr FieldName kSupplyKind{"supply_kind"};      // export, SEZ, import ...
inline constexpr FieldName kSupplyKindName{"supply_kind_name"};
inline constexpr FieldName kPlaceOfSupply{"place_of_supply"};  // code of its state
inline constexpr FieldName kPlaceName{"place_name"};
inline constexpr FieldName kShippingBill{"shipping_bill"};  // or bill of entry
inline constexpr FieldName kShippingDate{"shipping_date"};
inline constexpr FieldName kPort{"port"};
inline constexpr FieldName kCountry{"country"};
inline constexpr FieldName kCurrency{"currency"};
inline constexpr FieldName kCurrencyRate{"currency_rate"};  // rupees for one
inline constexpr FieldName kCurrencyTotal{"currency_total"};
inline constexpr FieldName kCustoms{"customs"};             // account that their tax is owed to
inline constexpr FieldName kCustomsName{"customs_name"};
inline constexpr FieldName kAccount{"account"};             // cash or bank
inline constexpr FieldName kAccountName{"account_name"};
inline constexpr FieldName kAccountBalance{"account_balance"};
inline constexpr FieldName kMode{"mode"};                   // in which money is paid
inline constexpr FieldName kModeName{"mode_name"};
inline constexpr FieldName kCheque{"cheque"};               // its number, or the reference of the bank
inline constexpr FieldName kChequeDate{"cheque_date"};
inline constexpr FieldName kDiscountAccount{"discount_account"};
inline constexpr FieldName kDiscountAccountName{"discount_account_name"};
inline constexpr FieldName kWriteOff{"write_off"};
inline constexpr FieldName kWriteOffAccount{"write_off_account"};
inline constexpr FieldName kWriteOffAccountName{"write_off_account_name"};
inline constexpr FieldName kTds{"tds"};
inline constexpr FieldName kTdsAccount{"tds_account"};
inline constexpr FieldName kTdsAccountName{"tds_account_name"};
inline constexpr FieldName kToSettle{"to_settle"};          // money, discount, write-off and TDS
inline constexpr FieldName kSettled{"settled"};             // against single bills
inline constexpr FieldName kOnAccount{"on_account"};        // the rest
inline constexpr FieldName kBills{"bills"};                 // the grid of the bills to settle

// Line of a voucher
inline constexpr FieldName kLineNumber{"line_no"};
inline constexpr FieldName kItem{"item"};
inline constexpr FieldName kItemName{"item_name"};
inline constexpr FieldName kDetail{"detail"};
inline constexpr FieldName kUnit{"unit"};
inline constexpr FieldName kQuantity{"quantity"};
inline constexpr FieldName kBilled{"billed"};               // the quantity of the bill's line
inline constexpr FieldName kBefore{"before"};               // what of it has gone back already
inline constexpr FieldName kRate{"rate"};
inline constexpr FieldName kCurrencyItemRate{"currency_item_rate"};  // the rate in the bill's currency
inline constexpr FieldName kDiscount{"discount"};           // percent
inline constexpr FieldName kCgstRate{"cgst_rate"};
inline constexpr FieldName kCgstAmount{"cgst_amount"};
inline constexpr FieldName kSgstRate{"sgst_rate"};
inline constexpr FieldName kSgstAmount{"sgst_amount"};
inline constexpr FieldName kIgstRate{"igst_rate"};
inline constexpr FieldName kIgstAmount{"igst_amount"};
inline constexpr FieldName kAmount{"amount"};               // of the line, or of money that is paid
inline constexpr FieldName kAssessable{"assessable"};       // value of the line before tax
inline constexpr FieldName kLines{"lines"};                 // the grid of them
inline constexpr FieldName kEarlierRates{"earlier_rates"};  // the grid over them

// Line of a journal, and what the whole comes to
inline constexpr FieldName kDebit{"debit"};
inline constexpr FieldName kCredit{"credit"};
inline constexpr FieldName kLineNarration{"line_narration"};
inline constexpr FieldName kBalanceAfter{"balance_after"};  // of the line's account
inline constexpr FieldName kDebitTotal{"debit_total"};
inline constexpr FieldName kCreditTotal{"credit_total"};
inline constexpr FieldName kDifference{"difference"};

// Foot of a voucher
inline constexpr FieldName kNarration{"narration"};
inline constexpr FieldName kTransportId{"transport_id"};
inline constexpr FieldName kTransport{"transport"};
inline constexpr FieldName kCreditDays{"cr_days"};
inline constexpr FieldName kDestination{"destination"};
inline constexpr FieldName kLrNumber{"lr_no"};
inline constexpr FieldName kLrDate{"lr_date"};
inline constexpr FieldName kParcels{"parcels"};
inline constexpr FieldName kDiscountPercent{"discount_percent"};  // of the whole
inline constexpr FieldName kDiscountAmount{"discount_amount"};
inline constexpr FieldName kCharges{"charges"};
inline constexpr FieldName kBillDiscountPercent{"bill_discount_percent"};
inline constexpr FieldName kBillDiscount{"bill_discount"};
inline constexpr FieldName kPacking{"packing"};
inline constexpr FieldName kFreight{"freight"};
inline constexpr FieldName kOtherCharges{"other_charges"};
inline constexpr FieldName kTaxable{"taxable"};  // the goods with them
inline constexpr FieldName kValidity{"validity"};
inline constexpr FieldName kRateTerms{"rate_terms"};
inline constexpr FieldName kPaymentTerms{"payment_terms"};
inline constexpr FieldName kTaxTerms{"tax_terms"};
inline constexpr FieldName kDeliveryTerms{"delivery_terms"};
inline constexpr FieldName kPackingTerms{"packing_terms"};
inline constexpr FieldName kInstallationTerms{"installation_terms"};
inline constexpr FieldName kSubjectTo{"subject_to"};

// Totals of a voucher
inline constexpr FieldName kItemsAmount{"items_amount"};
inline constexpr FieldName kTotalQuantity{"total_quantity"};
inline constexpr FieldName kCgstTotal{"cgst_total"};
inline constexpr FieldName kSgstTotal{"sgst_total"};
inline constexpr FieldName kIgstTotal{"igst_total"};
inline constexpr FieldName kRoundOff{"round_off"};
inline constexpr FieldName kNetAmount{"net_amount"};

// Masters
inline constexpr FieldName kCode{"code"};
inline constexpr FieldName kName{"name"};
inline constexpr FieldName kGroup{"group"};
inline constexpr FieldName kGroupName{"group_name"};
inline constexpr FieldName kOpeningBalance{"opening_balance"};
inline constexpr FieldName kAddress1{"address1"};
inline constexpr FieldName kAddress2{"address2"};
inline constexpr FieldName kCity{"city"};
inline constexpr FieldName kPinCode{"pin_code"};
inline constexpr FieldName kArea{"area"};
inline constexpr FieldName kPhone{"phone"};
inline constexpr FieldName kPerson{"person"};
inline constexpr FieldName kEmail{"email"};
inline constexpr FieldName kPan{"pan"};
inline constexpr FieldName kGstin{"gstin"};
inline constexpr FieldName kStateCode{"state_code"};
inline constexpr FieldName kShortName{"short_name"};
inline constexpr FieldName kLongName{"long_name"};
inline constexpr FieldName kCategory{"category"};
inline constexpr FieldName kCategoryName{"category_name"};
inline constexpr FieldName kUnitName{"unit_name"};          // the item's own unit
inline constexpr FieldName kTaxRate{"tax_rate"};
inline constexpr FieldName kHsn{"hsn"};
inline constexpr FieldName kRowCode{"row_code"};            // item of a detail row
inline constexpr FieldName kPurchaseRate{"purchase_rate"};
inline constexpr FieldName kSaleRate{"sale_rate"};
inline constexpr FieldName kMrp{"mrp"};
inline constexpr FieldName kOpeningStock{"opening_stock"};
inline constexpr FieldName kDescription{"description"};
inline constexpr FieldName kGrouping{"grouping"};
inline constexpr FieldName kCessRate{"cess_rate"};
inline constexpr FieldName kNoStock{"no_stock"};
inline constexpr FieldName kOnPaper{"on_paper"};
inline constexpr FieldName kGovernmentId{"government_id"};
inline constexpr FieldName kReceiptType{"receipt_type"};
inline constexpr FieldName kCharge{"charge"};
inline constexpr FieldName kUser{"user"};                   // who changed the row last

// Company
inline constexpr FieldName kCompany{"company"};
inline constexpr FieldName kFromYear{"from_year"};
inline constexpr FieldName kToYear{"to_year"};
inline constexpr FieldName kSearch{"search"};
inline constexpr FieldName kAddress{"address"};
inline constexpr FieldName kState{"state"};
inline constexpr FieldName kPhone2{"phone2"};
inline constexpr FieldName kBank{"bank"};
inline constexpr FieldName kBranch{"branch"};
inline constexpr FieldName kAccountNumber{"account_no"};
inline constexpr FieldName kIfsc{"ifsc"};

// Operators
inline constexpr FieldName kPassword{"password"};
inline constexpr FieldName kPasswordAgain{"password_again"};

// Settings
inline constexpr FieldName kSetting{"setting"};             // the value of the one under the cursor

// Series of numbers on paper
inline constexpr FieldName kSeriesType{"series_type"};
inline constexpr FieldName kPrefix{"prefix"};
inline constexpr FieldName kWidth{"width"};
inline constexpr FieldName kSuffix{"suffix"};
inline constexpr FieldName kFirstNumber{"first_no"};

// Choice of designs
inline constexpr FieldName kBillDesign{"bill_design"};
inline constexpr FieldName kQuotationDesign{"quotation_design"};
inline constexpr FieldName kChallanDesign{"challan_design"};
inline constexpr FieldName kDesignNumber{"design_no"};
inline constexpr FieldName kDesignName{"design_name"};
inline constexpr FieldName kFileName{"file_name"};
inline constexpr FieldName kSheetName{"sheet_name"};
inline constexpr FieldName kQueryName{"query_name"};
inline constexpr FieldName kButtonName{"button_name"};
inline constexpr FieldName kHeadLines{"head_lines"};
inline constexpr FieldName kFootLines{"foot_lines"};
inline constexpr FieldName kInvoiceLines{"invoice_lines"};
inline constexpr FieldName kItemLines{"item_lines"};
inline constexpr FieldName kPages{"pages"};
inline constexpr FieldName kCopies{"copies"};

// Filters of reports
inline constexpr FieldName kFrom{"from"};
inline constexpr FieldName kTo{"to"};
inline constexpr FieldName kSalesman{"salesman"};

// Bank reconciliation
inline constexpr FieldName kBankSays{"bank_says"};          // its balance, as the statement has it
inline constexpr FieldName kBookRows{"book_rows"};          // the grids of both sides
inline constexpr FieldName kStatementRows{"statement_rows"};
inline constexpr FieldName kByBooks{"by_books"};            // what the sums come to
inline constexpr FieldName kPaidOpen{"paid_open"};
inline constexpr FieldName kReceivedOpen{"received_open"};
inline constexpr FieldName kByBank{"by_bank"};
inline constexpr FieldName kNotInBooks{"not_in_books"};
inline constexpr FieldName kUnexplained{"unexplained"};

}  // namespace fields
// clang-format on
