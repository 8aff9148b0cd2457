# The tidewell command.

if(TIDEWELL_COMMAND_SOURCES)
  add_executable(tidewell ${TIDEWELL_COMMAND_SOURCES})
  target_link_libraries(tidewell PRIVATE tidewell_core tidewell_resources ${TIDEWELL_SYSTEM_LIBRARIES})
  if(WIN32)
    target_link_options(tidewell PRIVATE -Wl,--subsystem,console:4.0)
  else()
    # Static, because to load it would take every run of the command longer.
    block()
      set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
      find_package(PNG REQUIRED)
    endblock()
    target_link_libraries(tidewell PRIVATE tidewell_pc tidewell_kernel PNG::PNG)
    if(NOT TIDEWELL_SANITIZE)
      # A command for one small file is run in less time than the C++ library takes to load.
      target_link_options(tidewell PRIVATE -static-libstdc++ -static-libgcc)
    endif()
  endif()
endif()
