#pragma once

#include <string>

#include "documents/data_sheet.h"
#include "platform/host.h"

// The data sheet of the address card of an account; one line when there is such an account.
FilledSheet addressCardSheet(Database& db, const std::string& name, const Row& company,
                             const std::string& account);

// Makes the card of ACCOUNT.ACC_CD, where mprnmode says.
void RenderAddressCard(Host& host, const std::string& account, const std::string& kind);
