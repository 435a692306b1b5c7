#pragma once

#include <string>

// The design workbooks that are delivered, one writer each.
namespace formats {

void invgst1(const std::string& path);
void invgst2(const std::string& path);
void invgst3(const std::string& path);
void invgst4(const std::string& path);
void invgst5(const std::string& path);
void invgst6(const std::string& path);
void quotitm7(const std::string& path);
void invgen8(const std::string& path);
void invgen9(const std::string& path);
void invgen(const std::string& path);
void voucher(const std::string& path);

// Writes every design into a folder, which is made when it is missing. Raises BookError.
void writeAll(const std::string& folder);

}  // namespace formats
