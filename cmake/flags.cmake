# How everything is compiled and linked.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_FLAGS_RELEASE "-O2")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g")

option(TIDEWELL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wall> $<$<COMPILE_LANGUAGE:CXX>:-Wextra>
                    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion> $<$<COMPILE_LANGUAGE:CXX>:-Wshadow>
                    $<$<COMPILE_LANGUAGE:CXX>:-Werror>)

if(TIDEWELL_SANITIZE)
  # vptr needs RTTI, which the library is built without.
  add_compile_options(-O1 -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize=vptr
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()

if(WIN32)
  # Only the libraries that a program names itself.
  set(CMAKE_CXX_STANDARD_LIBRARIES "")
  add_compile_definitions(WINVER=0x0400 _WIN32_WINNT=0x0400 _WIN32_IE=0x0300)
  add_link_options(-static -s -Wl,--no-insert-timestamp
                   -Wl,--major-subsystem-version,4,--minor-subsystem-version,0
                   -Wl,--major-os-version,4,--minor-os-version,0)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    # Windows 95 runs on processors without conditional moves.
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-march=pentium>)
  endif()
endif()

# What the shell's process loads: nothing throws in it, and it needs no C++ run-time library.
set(TIDEWELL_PRODUCT_OPTIONS -fno-exceptions -fno-rtti -fno-threadsafe-statics)
