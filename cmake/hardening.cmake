# What a release is hardened with: bounds that the compiler knows are checked, the stack is guarded and
# cannot jump over its guard, calls and returns land where they should, and what is linked is bound at the
# start and then read only, at addresses that nobody foresees.
add_library(mirav_hardening INTERFACE)
if(CMAKE_BUILD_TYPE STREQUAL Release)
  target_compile_options(mirav_hardening INTERFACE
    -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL x86_64)
    target_compile_options(mirav_hardening INTERFACE -fcf-protection)
  endif()
  target_link_options(mirav_hardening INTERFACE -pie -Wl,-z,relro,-z,now)
endif()
