#pragma once

#include <string>

// Where the publisher's pages stand. Each is a configuration value of whoever hands the
// program out; an empty one makes its button or menu entry do nothing.
struct Links {
  std::string companyVideo;      // tutorial of the company selection
  std::string videoTraining;     // "Video Training"
  std::string videoChannel;      // the tool bar's videos
  std::string trainingBook;      // "Training Book Pdf"
  std::string softwareUpdate;    // "Update Software"
  std::string accountVideo;      // account master
  std::string itemVideo;         // item master
  std::string smallMasterVideo;  // categories, taxes, transporters
  std::string saleVideo;         // bills
  std::string purchaseVideo;
  std::string challanVideo;
  std::string quotationVideo;
  std::string receiptVideo;          // on account
  std::string receiptBillwiseVideo;  // bill by bill
  std::string ledgerVideo;
  std::string tLedgerVideo;
  std::string partyListVideo;
  std::string categoryListVideo;
  std::string priceListVideo;
  std::string saleRegistersVideo;
  std::string gstr1RdVideo;
  std::string gstr1UrdVideo;
  std::string reportVideo;  // all other reports
};

Links& links();
