#pragma once

#include <functional>

// Whether the person wants the running work to end. Asked now and then by what may run for long, several
// times a second, from inside the work: the answer must not touch what the work touches, nor throw.
// Set by a host that can tell; empty elsewhere.
inline std::function<bool()>& endAsked() {
  static std::function<bool()> asked;
  return asked;
}
