# What turns an overwritten byte into the end of the program instead of into somebody else's code. packaging/hardened looks
# for it in the result.

if(TARNQUILL_HARDEN)
  # The static libraries may end up in a shared one, so everything is position-independent; calls within it stay direct.
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  include(CheckPIESupported)
  check_pie_supported()
  add_compile_options(-fno-semantic-interposition -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE
                      -D_FORTIFY_SOURCE=3)
  add_link_options(-Wl,-z,relro,-z,now)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$")
    add_compile_options(-fcf-protection)
  endif()
endif()
