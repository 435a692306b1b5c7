#pragma once

#include <map>
#include <string>
#include <vector>

#include "store/database.h"

// The operators of books on a server. Each is an account of the server itself, and what he may do in a
// company is made of the server's own grants: it holds whatever client he signs in with. A right counts for
// all years of a company, those to come too, and from the moment it is given: who is signed in is cut off
// and signs in again with what he may do now. On a cluster that cut reaches those of the same node alone;
// the others keep what they had until they leave.
//
// With the books in a file there are none. All raise DatabaseError.

// Each lets do what the one before does, and more: look at everything and print it; enter, change and delete
// vouchers and masters; bring books into shape, restore them.
enum class Right { None, Look, Bill, All };

struct Operator {
  std::string name, host;               // the account name@host; host "%" is any computer
  bool owner = false;                   // may everything, and makes operators; changed on the server alone
  std::map<std::string, Right> rights;  // by company code; a company that is missing is one without a right
  Right highest() const;
};

// Whether who is signed in may make operators.
bool mayMakeOperators(Database& db);

// Owners last.
std::vector<Operator> operators(Database& catalogue);

// Why nobody can be added under the name, in words; empty when it may be.
std::string nameRefusal(const std::string& name, const std::vector<Operator>& all);
std::string passwordRefusal(const std::string& password, const std::string& again);

// May look at the list of companies and at nothing else.
void addOperator(Database& catalogue, const std::string& name, const std::string& password);
void removeOperator(Database& catalogue, const Operator& which);
void setPassword(Database& catalogue, const Operator& which, const std::string& password);
void setRight(Database& catalogue, const Operator& which, const std::string& company, Right right);
// All may do in one company what they may do in another: the year that follows under a further code.
void giveSameRights(Database& catalogue, const std::string& from, const std::string& to);
