# Shared by the two Windows toolchains; the caller has set TIDEWELL_TRIPLE.
# The win32 thread model: the posix one imports functions that Windows 95 and NT 4 do not have.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${TIDEWELL_TRIPLE}-gcc-win32)
set(CMAKE_CXX_COMPILER ${TIDEWELL_TRIPLE}-g++-win32)
set(CMAKE_RC_COMPILER ${TIDEWELL_TRIPLE}-windres)
set(CMAKE_OBJDUMP ${TIDEWELL_TRIPLE}-objdump)
set(CMAKE_FIND_ROOT_PATH /usr/${TIDEWELL_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/wine-run)
