#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "store/database.h"

struct Failure {
  DatabaseError::Kind kind = DatabaseError::Kind::other;
  std::string sentence{};  // empty when nothing failed
};

inline Failure failureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    return {.kind = error.kind(), .sentence = error.what()};
  }
  ADD_FAILURE() << "no error";
  return {};
}
